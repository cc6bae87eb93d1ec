#include "mqtt/mosquitto_process.h"

#include "mqtt/broker_link.h"
#include "portable/temporary_folder.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

namespace servopanel::testing {

namespace {

struct Receiver : mqtt::LinkReceiver {
    void linkUp() override { ++ups; }
    void linkDown(std::string_view) override { ++downs; }
    void received(std::string_view, std::string_view, bool) override { }

    int ups = 0;
    int downs = 0;
};

// Starts a broker, tells its port and waits to be killed.
[[noreturn]] void startAndWait(const std::filesystem::path& temporary, int out)
{
    ::setenv("TMPDIR", temporary.c_str(), 1); // nobody removes what it leaves behind there
    MosquittoProcess broker;
    const int port = broker.start() ? broker.address().port : 0;
    if (::write(out, &port, sizeof port) == sizeof port)
        for (;;)
            ::pause();
    ::_exit(EXIT_FAILURE);
}

} // namespace

TEST(MosquittoProcess, DoesNotOutliveATestThatIsKilled)
{
    const tests::TemporaryFolder temporary;
    int ends[2]{};
    ASSERT_EQ(::pipe(ends), 0);
    const pid_t test = ::fork();
    if (test == 0) startAndWait(temporary.path(), ends[1]);
    ::close(ends[1]);
    mqtt::BrokerAddress address;
    ASSERT_EQ(::read(ends[0], &address.port, sizeof address.port), static_cast<ssize_t>(sizeof address.port));
    ::close(ends[0]);
    ASSERT_NE(address.port, 0);

    Receiver receiver;
    mqtt::BrokerLink link{{.address = address, .client = "a"}};
    link.start(receiver, {});
    const mqtt::Clock clock = mqtt::steadyClock();
    const std::int64_t end = clock() + 20'000;
    while (receiver.ups == 0 && clock() < end)
        link.poll(5);
    EXPECT_EQ(receiver.ups, 1) << link.trouble();
    ::kill(test, SIGKILL);
    ::waitpid(test, nullptr, 0);
    while (receiver.downs == 0 && clock() < end)
        link.poll(5);
    EXPECT_EQ(receiver.downs, 1);
}

} // namespace servopanel::testing
