#pragma once

#include "mqtt/broker_address.h"
#include "mqtt/mosquitto_process.h"

#include <filesystem>
#include <string>

namespace servopanel::testing {

// Runs the script of packaging/broker on a folder: "panel P1". False when it fails.
bool makeCertificates(const std::filesystem::path& folder, const std::string& arguments);

// Before the broker's start: the example configuration of packaging/broker, with the keys that the script has put into the
// folder.
void configureLikeExample(const MosquittoProcess& broker, const std::filesystem::path& keys);

// Of such a broker, for whom the script has made a certificate in the folder.
mqtt::BrokerAddress addressFor(
    const std::string& name, const MosquittoProcess& broker, const std::filesystem::path& keys);

} // namespace servopanel::testing
