#include "line_machine/controller.h"
#include "mqtt/broker_example.h"
#include "mqtt/broker_link.h"
#include "mqtt/broker_variables.h"
#include "mqtt/machine_fixture.h"
#include "mqtt/mosquitto_process.h"
#include "mqtt/pumped_link.h"
#include "portable/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

// The example configuration of packaging/broker, with the certificates that its script makes.

namespace servopanel::testing {

namespace {

namespace fs = std::filesystem;

// Takes down what comes; connects as whom the certificate names.
class Client : private mqtt::LinkReceiver {
public:
    Client(const mqtt::BrokerAddress& address, const std::string& id, std::vector<std::string> subscriptions)
        : link{{.address = address, .client = id, .firstRetryMilliseconds = 20}}
    {
        link.start(*this, std::move(subscriptions));
    }

    mqtt::BrokerLink link;
    int ups = 0;
    std::vector<std::string> topics;

private:
    void linkUp() override { ++ups; }
    void linkDown(std::string_view) override { }
    void received(std::string_view topic, std::string_view, bool) override { topics.emplace_back(topic); }
};

} // namespace

class SecuredBroker : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        made = std::make_unique<tests::TemporaryFolder>();
        ASSERT_TRUE(makeCertificates(made->path(), "broker localhost 127.0.0.1"));
        for (const char* client : {"panel P1", "panel P2", "viewer V1", "machine M1", "machine M2"})
            ASSERT_TRUE(makeCertificates(made->path(), client)) << client;
        std::ofstream{made->path() / "password"} << "secret\n";
        fs::permissions(made->path() / "password", fs::perms::owner_read);
        const std::string passwords = made->path() / "broker" / "passwords";
        const std::string command = "mosquitto_passwd -b " + passwords + " P2 secret";
        ASSERT_EQ(std::system(command.c_str()), 0);
    }
    static void TearDownTestSuite() { made.reset(); }

    void SetUp() override
    {
        fs::copy(made->path(), keys.path(), fs::copy_options::recursive);
        configureLikeExample(broker, keys.path());
        ASSERT_TRUE(broker.start());
    }

    mqtt::BrokerAddress as(const std::string& name) const { return as(name, keys.path()); }
    mqtt::BrokerAddress as(const std::string& name, const fs::path& folder) const
    {
        return addressFor(name, broker, folder);
    }

    static bool until(const std::function<bool()>& condition, const std::vector<mqtt::Link*>& links)
    {
        const mqtt::Clock clock = mqtt::steadyClock();
        for (const std::int64_t end = clock() + 20'000; !condition();) {
            if (clock() > end) return false;
            for (mqtt::Link* link : links)
                link->poll(2);
        }
        return true;
    }
    // Whether such a client is never let in, and is told why.
    static void isRefused(const mqtt::BrokerAddress& address, const std::string& reason = {})
    {
        Client client{address, "stranger", {}};
        EXPECT_TRUE(until([&] { return !client.link.trouble().empty() || client.ups > 0; }, {&client.link}));
        EXPECT_EQ(client.ups, 0);

        EXPECT_NE(client.link.trouble(), "");
        EXPECT_NE(client.link.trouble().find(reason), std::string::npos) << client.link.trouble();
    }

    static inline std::unique_ptr<tests::TemporaryFolder> made;
    tests::TemporaryFolder keys; // a copy of those
    MosquittoProcess broker;
};

TEST_F(SecuredBroker, TakesOnlyWhomItsAuthorityKnows)
{
    Client panel{as("P1"), "panel", {}};
    EXPECT_TRUE(until([&] { return panel.link.isUp(); }, {&panel.link})) << panel.link.trouble();

    mqtt::BrokerAddress nameless = as("P1");
    nameless.certificate.clear();
    nameless.key.clear();
    isRefused(nameless);

    tests::TemporaryFolder others;
    ASSERT_TRUE(makeCertificates(others.path(), "broker localhost 127.0.0.1"));
    ASSERT_TRUE(makeCertificates(others.path(), "panel P1"));
    isRefused(as("P1", others.path()), "certificate verify failed"); // does not know this broker's authority
    mqtt::BrokerAddress forged = as("P1", others.path());
    forged.authority = as("P1").authority;
    isRefused(forged); // the broker does not know his
}

TEST_F(SecuredBroker, OfAnotherHostIsNotTrusted)
{
    broker.kill();
    ASSERT_TRUE(makeCertificates(keys.path(), "broker other.example"));
    ASSERT_TRUE(broker.start());
    isRefused(as("P1"), "host name");
    broker.kill();
    ASSERT_TRUE(makeCertificates(keys.path(), "broker 127.0.0.1"));
    ASSERT_TRUE(broker.start());
    Client panel{as("P1"), "panel", {}};
    EXPECT_TRUE(until([&] { return panel.link.isUp(); }, {&panel.link})) << panel.link.trouble();
}

TEST_F(SecuredBroker, ACertificateOfAClientDoesNotServeAsABroker)
{
    broker.kill();
    for (const char* file : {"key.pem", "certificate.pem"})
        fs::copy_file(keys.path() / "P2" / file,
            keys.path() / "broker" / (std::string{file} == "key.pem" ? "broker.key" : "broker.pem"),
            fs::copy_options::overwrite_existing);
    ASSERT_TRUE(broker.start());
    isRefused(as("P1"));
}

TEST_F(SecuredBroker, TakesProgramsOfItsComputerByPassword)
{
    mqtt::BrokerAddress address = broker.socketAddress();
    isRefused(address); // nobody
    address.user = "P2";
    isRefused(address); // without a password
    address.passwordFile = keys.path() / "password";
    Client watcher{as("M1"), "watcher", {"pm/v1/+/cmd/+"}};
    Client local{address, "local", {}};
    ASSERT_TRUE(until([&] { return watcher.link.isUp() && local.link.isUp(); }, {&watcher.link, &local.link}))
        << local.link.trouble();
    for (const char* topic : {"pm/v1/M1/cmd/P1", "pm/v1/M1/cmd/P2"})
        ASSERT_TRUE(local.link.publish(topic, "{}", mqtt::Link::Keep::No, 0));
    ASSERT_TRUE(until([&] { return !watcher.topics.empty(); }, {&watcher.link, &local.link}));
    EXPECT_EQ(watcher.topics, (std::vector<std::string>{"pm/v1/M1/cmd/P2"}));
}

TEST_F(SecuredBroker, EverybodySpeaksInHisOwnName)
{
    struct Row {
        const char* name;
        std::vector<std::string> may; // below pm/v1/
        std::vector<std::string> mayNot;
    };
    const Row rows[]{
        {"P1", {"M1/cmd/P1", "M2/cmd/P1", "M1/get/P1"},
            {"M1/cmd/P2", "M1/get/P2", "M1/state", "M1/desc/0", "M1/val/x", "M1/hb", "M1/ack/P1", "M1/fault",
                "P1/state", "M1/cmd/P1/x"}},
        {"V1", {"M1/get/V1"}, {"M1/cmd/V1", "M1/cmd/P1", "M1/get/P1", "M1/state", "M1/val/x", "V1/state"}},
        {"M1", {"M1/state", "M1/desc/0", "M1/val/x", "M1/hb", "M1/ack/P1"},
            {"M2/state", "M2/val/x", "M2/hb", "M2/ack/P1", "M2/cmd/M1", "M1/cmd/P1", "M1/cmd/M1",
                "M1/fault"}},
    };
    for (const Row& row : rows) {
        Client watcher{as("P2"), "watcher", {"pm/v1/#"}};
        Client client{as(row.name), row.name, {}};
        ASSERT_TRUE(
            until([&] { return watcher.link.isUp() && client.link.isUp(); }, {&watcher.link, &client.link}));
        for (const std::string& topic : row.mayNot)
            ASSERT_TRUE(client.link.publish("pm/v1/" + topic, "{}", mqtt::Link::Keep::No, 0));
        std::vector<std::string> expected;
        for (const std::string& topic : row.may) {
            ASSERT_TRUE(client.link.publish("pm/v1/" + topic, "{}", mqtt::Link::Keep::No, 0));
            expected.push_back("pm/v1/" + topic);
        }
        // Messages keep their order, so what was not let through would have come first.
        ASSERT_TRUE(until([&] { return !watcher.topics.empty() && watcher.topics.back() == expected.back(); },
            {&watcher.link, &client.link}))
            << row.name;
        EXPECT_EQ(watcher.topics, expected) << row.name;
    }
}

TEST_F(SecuredBroker, CarriesThePanelsWritesAndNoneOfAViewer)
{
    machine::VariableStore store;
    const mqtt::Description description = declareServo(store);
    mqtt::BrokerLink machineLink{{.address = as("M1"), .client = "machine-M1"}};
    line_machine::Controller controller{
        {.machine = "M1", .epoch = 1'700'000'000'000, .heartbeatMilliseconds = 50}, description, store,
        machineLink};
    const auto outcome = [&](const std::string& name) {
        PumpedLink link{{.address = as(name), .client = "panel-" + name}, [&] { controller.poll(0); }};
        mqtt::BrokerVariables variables{{.panel = name, .machines = {"M1"}}, link};
        variables.setLevel(5);
        EXPECT_TRUE(until(
            [&] {
                variables.poll(2);
                return variables.standing(para).quality == mqtt::Quality::Good;
            },
            {}))
            << name;
        try {
            variables.WriteValue(para, basic::doubles({7, 5, 5}));
        } catch (const basic::Error& error) {
            return static_cast<mqtt::Outcome>(error.number);
        }
        return mqtt::Outcome::Done;
    };
    EXPECT_EQ(outcome("V1"), mqtt::Outcome::NoAnswerNotWritten);
    EXPECT_TRUE(controller.seen().empty());
    EXPECT_EQ(outcome("P1"), mqtt::Outcome::Done);
    EXPECT_EQ(controller.seen().size(), 1U);
    EXPECT_EQ(*store.find(para), basic::doubles({7, 5, 5}));
}

TEST_F(SecuredBroker, DoesNotStartWithAListThatItCannotRead)
{
    broker.kill();
    const fs::path list = keys.path() / "broker" / "acl";
    const std::string good = tests::contentOf(list);
    for (const char* const mistake : {"usr P3\n", "pattern wrte x\n", "topic\n"}) {
        std::ofstream{list} << good << mistake;
        EXPECT_FALSE(broker.start()) << mistake;
    }
    fs::remove(list);
    EXPECT_FALSE(broker.start()) << "no list";
    std::ofstream{list} << good;
    EXPECT_TRUE(broker.start());
}

// A broker that reads a broken list anew opens itself to everybody, so it must not be asked to.
TEST(BrokerExample, AReloadOfTheServiceDoesNothing)
{
    const std::string unit = tests::contentOf(fs::path{SERVOPANEL_BROKER_EXAMPLE} / "no-reload.conf");
    EXPECT_TRUE(unit.ends_with("[Service]\nExecReload=\nExecReload=/bin/true\n")) << unit;
}

TEST(MakeCertificates, AddsToTheListAsAWhole)
{
    tests::TemporaryFolder folder;
    ASSERT_TRUE(makeCertificates(folder.path() / "keys", "broker localhost"));
    const fs::path list = folder.path() / "keys" / "broker" / "acl";
    fs::permissions(list, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    const auto mode = fs::status(list).permissions();
    const std::string before = tests::contentOf(list);
    ASSERT_TRUE(makeCertificates(folder.path() / "keys", "panel P1"));
    EXPECT_EQ(tests::contentOf(list), before + "\nuser P1\ntopic write pm/v1/+/cmd/P1\n");
    EXPECT_EQ(fs::status(list).permissions(), mode);
    EXPECT_FALSE(fs::exists(folder.path() / "keys" / "broker" / "acl.new"));
}

TEST(MakeCertificates, KeepsKeysToTheirOwnerAndOutOfProjects)
{
    tests::TemporaryFolder folder;
    ASSERT_TRUE(makeCertificates(folder.path() / "keys", "broker localhost"));
    ASSERT_TRUE(makeCertificates(folder.path() / "keys", "panel P1"));
    for (const char* key : {"authority.key", "broker/broker.key", "P1/key.pem"})
        EXPECT_EQ(fs::status(folder.path() / "keys" / key).permissions(),
            fs::perms::owner_read | fs::perms::owner_write)
            << key;
    EXPECT_FALSE(fs::exists(folder.path() / "keys" / "broker" / "authority.key"))
        << "it signs, it does not serve";
    EXPECT_FALSE(fs::exists(folder.path() / "keys" / "P1" / "authority.key"));

    EXPECT_FALSE(makeCertificates(folder.path() / "keys", "viewer P1")) << "one name, one set of rights";
    for (const char* wrong : {"panel a/b", "panel '#'", "panel ''", "panel broker", "boss B1"})
        EXPECT_FALSE(makeCertificates(folder.path() / "keys", wrong)) << wrong;

    std::ofstream{folder.path() / "project.json"} << "{}";
    EXPECT_FALSE(makeCertificates(folder.path() / "keys", "panel P2")) << "a project since";
    EXPECT_FALSE(makeCertificates(folder.path() / "new" / "keys", "broker localhost"));
    EXPECT_FALSE(fs::exists(folder.path() / "new"));
}

} // namespace servopanel::testing
