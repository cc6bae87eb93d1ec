#pragma once

#include "mqtt/broker_address.h"

#include <sys/types.h>

#include <filesystem>
#include <string>

namespace servopanel::testing {

// A real broker on a free loopback port and on a socket file, without any memory of the last one.
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

private:
    std::filesystem::path folder_;
    int port_ = 0;
    pid_t process_ = 0;
};

} // namespace servopanel::testing
