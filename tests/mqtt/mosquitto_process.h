#pragma once

#include "mqtt/broker_address.h"
#include "portable/temporary_folder.h"

#include <sys/types.h>

#include <filesystem>
#include <string>

namespace servopanel::testing {

// A real broker on a free loopback port and on a socket file, without any memory of the last one. It runs as our own user
// and is killed with us.
class MosquittoProcess {
public:
    MosquittoProcess();
    ~MosquittoProcess();
    MosquittoProcess(const MosquittoProcess&) = delete;
    MosquittoProcess& operator=(const MosquittoProcess&) = delete;

    // Returns when it takes connections; false when it does not come up.
    bool start();
    void kill(); // as if its machine had lost its supply
    void freeze(); // takes no more bytes, connections stay
    void thaw();

    mqtt::BrokerAddress address() const;
    mqtt::BrokerAddress socketAddress() const;

    // Before start: instead of the own configuration. Its listeners are that of address() and of socketAddress().
    void configure(const std::string& text) const;

    // Before start: a further port for encrypted connections of clients with a certificate, whose name is their user
    // name. False when the certificates cannot be made.
    bool encrypt();
    // With the certificate of client P1.
    mqtt::BrokerAddress encryptedAddress() const;
    std::filesystem::path foreignAuthority() const; // that did not sign the broker's certificate

private:
    static std::string ownUser();
    bool makeCertificate(const std::string& name, const std::string& authority) const;

    tests::TemporaryFolder folder_;
    int port_ = 0;
    int encryptedPort_ = 0;
    pid_t process_ = 0;
};

} // namespace servopanel::testing
