#include "mqtt/broker_example.h"

#include "portable/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace servopanel::testing {

namespace {

const std::filesystem::path example = SERVOPANEL_BROKER_EXAMPLE;

void replaceAll(std::string& text, const std::string& what, const std::string& by)
{
    ASSERT_NE(text.find(what), std::string::npos) << what;
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size())
        text.replace(at, what.size(), by);
}

} // namespace

bool makeCertificates(const std::filesystem::path& folder, const std::string& arguments)
{
    std::string command = example / "make_certificates";
    command.append(" ").append(folder).append(" ").append(arguments).append(" >/dev/null 2>&1");
    return std::system(command.c_str()) == 0;
}

void configureLikeExample(const MosquittoProcess& broker, const std::filesystem::path& keys)
{
    std::string text = tests::contentOf(example / "mosquitto.conf");
    replaceAll(text, "/etc/mosquitto/servo-panel", keys / "broker");
    replaceAll(text, "/run/servo-panel-broker/socket", broker.socketAddress().socket);
    replaceAll(text, "listener 8883", "listener " + std::to_string(broker.address().port) + " 127.0.0.1");
    broker.configure(text.append("log_dest none\n"));
}

mqtt::BrokerAddress addressFor(
    const std::string& name, const MosquittoProcess& broker, const std::filesystem::path& keys)
{
    mqtt::BrokerAddress address = broker.address();
    address.authority = keys / name / "authority.pem";
    address.certificate = keys / name / "certificate.pem";
    address.key = keys / name / "key.pem";
    return address;
}

} // namespace servopanel::testing
