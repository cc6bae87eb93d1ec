#include "mqtt/mosquitto_process.h"

#include "support/ends_with_us.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <pwd.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <utility>

namespace servopanel::testing {

namespace {

sockaddr_in loopback(int port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

int freePort()
{
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = loopback(0);
    socklen_t size = sizeof address;
    ::bind(socket, reinterpret_cast<sockaddr*>(&address), size);
    ::getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size);
    ::close(socket);
    return ntohs(address.sin_port);
}

bool accepts(int port)
{
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_in address = loopback(port);
    const bool connected =
        ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::close(socket);
    return connected;
}

} // namespace

// Otherwise one that root has started becomes another user, may not read our files, and outlives a test that is killed.
std::string MosquittoProcess::ownUser()
{
    const passwd* const self = ::getpwuid(::geteuid());
    return self ? std::string{"user "}.append(self->pw_name).append("\n") : std::string{};
}

MosquittoProcess::MosquittoProcess()
    : port_{freePort()}
{
    std::ofstream{folder_.path() / "broker.conf"}
        << "listener " << port_ << " 127.0.0.1\nlistener 0 " << socketAddress().socket.string()
        << "\nallow_anonymous true\npersistence false\nlog_dest none\n"
        << ownUser();
}

MosquittoProcess::~MosquittoProcess() { kill(); }

bool MosquittoProcess::start()
{
    const std::string configuration = folder_.path() / "broker.conf";
    const pid_t self = ::getpid();
    process_ = ::fork();
    if (process_ == 0) {
        endWith(self);
        const int nothing = ::open("/dev/null", O_RDWR);
        ::dup2(nothing, STDOUT_FILENO);
        ::dup2(nothing, STDERR_FILENO);
        ::execl(SERVOPANEL_MOSQUITTO, "mosquitto", "-c", configuration.c_str(), nullptr);
        ::_exit(EXIT_FAILURE);
    }
    for (int i = 0; i < 500; ++i) {
        if (accepts(port_)) return true;
        if (::waitpid(process_, nullptr, WNOHANG) != 0) {
            process_ = 0;
            return false;
        }
        ::poll(nullptr, 0, 10);
    }
    return false;
}

void MosquittoProcess::kill()
{
    if (process_ <= 0) return;
    ::kill(process_, SIGKILL);
    ::waitpid(std::exchange(process_, 0), nullptr, 0);
    ::unlink(socketAddress().socket.c_str());
}

void MosquittoProcess::freeze() { ::kill(process_, SIGSTOP); }

void MosquittoProcess::thaw() { ::kill(process_, SIGCONT); }

mqtt::BrokerAddress MosquittoProcess::address() const
{
    mqtt::BrokerAddress address;
    address.port = port_;
    return address;
}

mqtt::BrokerAddress MosquittoProcess::socketAddress() const
{
    mqtt::BrokerAddress address;
    address.socket = folder_.path() / "broker.socket";
    return address;
}

void MosquittoProcess::configure(const std::string& text) const
{
    std::ofstream{folder_.path() / "broker.conf"} << text << ownUser();
}

bool MosquittoProcess::encrypt()
{
    if (!makeCertificate("ca", "") || !makeCertificate("other", "") || !makeCertificate("127.0.0.1", "ca")
        || !makeCertificate("P1", "ca"))
        return false;
    encryptedPort_ = freePort();
    const std::string folder = folder_.path().string() + "/";
    std::ofstream{folder_.path() / "broker.conf", std::ios::app}
        << "listener " << encryptedPort_ << " 127.0.0.1\ncafile " << folder << "ca.pem\ncertfile " << folder
        << "127.0.0.1.pem\nkeyfile " << folder
        << "127.0.0.1.key\nrequire_certificate true\nuse_identity_as_username true\n";
    return true;
}

// authority: empty for one that signs itself.
bool MosquittoProcess::makeCertificate(const std::string& name, const std::string& authority) const
{
    const std::string key = "openssl req -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -subj /CN="
        + name + " -addext subjectAltName=IP:127.0.0.1 -keyout " + name + ".key ";
    const std::string signing = authority.empty()
        ? "-x509 -days 2 -out " + name + ".pem"
        : "-out request && openssl x509 -req -in request -days 2 -copy_extensions copy -CA " + authority
            + ".pem -CAkey " + authority + ".key -CAcreateserial -out " + name + ".pem";
    const std::string command =
        "cd " + folder_.path().string() + " && { " + key + signing + " ; } >openssl.log 2>&1";
    return std::system(command.c_str()) == 0;
}

mqtt::BrokerAddress MosquittoProcess::encryptedAddress() const
{
    mqtt::BrokerAddress address;
    address.port = encryptedPort_;
    address.authority = folder_.path() / "ca.pem";
    address.certificate = folder_.path() / "P1.pem";
    address.key = folder_.path() / "P1.key";
    return address;
}

std::filesystem::path MosquittoProcess::foreignAuthority() const { return folder_.path() / "other.pem"; }

} // namespace servopanel::testing
