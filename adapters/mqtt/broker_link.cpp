#include "mqtt/broker_link.h"

#include "basic/error.h"

#include <mosquitto.h>
#include <mqtt_protocol.h>

#include <linux/sockios.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <exception>
#include <fstream>
#include <limits>
#include <memory>
#include <utility>

namespace servopanel::mqtt {

namespace {

constexpr int mostPacketsAtOnce = 2000; // then others of the same thread have their turn
constexpr int firstReasonOfBroker = 128;
constexpr int connectionFailed = 462; // "the remote server machine does not exist or is unavailable"

struct Free {
    void operator()(mosquitto* client) const { mosquitto_destroy(client); }
};
using Handle = std::unique_ptr<mosquitto, Free>;

std::string reasonOf(int result)
{
    return result == MOSQ_ERR_ERRNO ? std::strerror(errno) : mosquitto_strerror(result);
}

// Of topic or length: nothing was sent, and the connection is none the worse.
bool isFaultOfMessage(int result)
{
    return result == MOSQ_ERR_INVAL || result == MOSQ_ERR_MALFORMED_UTF8 || result == MOSQ_ERR_PAYLOAD_SIZE
        || result == MOSQ_ERR_OVERSIZE_PACKET;
}

bool isClientId(const std::string& id)
{
    return !id.empty() && id.size() <= std::numeric_limits<std::uint16_t>::max()
        && mosquitto_validate_utf8(id.data(), static_cast<int>(id.size())) == MOSQ_ERR_SUCCESS;
}

void initialiseLibraryOnce()
{
    static const bool done = [] {
        mosquitto_lib_init(); // for the whole process, never ended
        // An encrypted connection that the broker has closed would end a program that did not think of this signal.
        struct sigaction current { };
        if (::sigaction(SIGPIPE, nullptr, &current) == 0 && current.sa_handler == SIG_DFL)
            ::signal(SIGPIPE, SIG_IGN);
        return true;
    }();
    static_cast<void>(done);
}

// The next close throws away what the system has not sent, which it would go on trying for minutes.
void forgetWhatIsUnsent(int socket)
{
    const linger now{1, 0};
    ::setsockopt(socket, SOL_SOCKET, SO_LINGER, &now, sizeof now);
}

// Ends a connection whose other side confirms nothing for so long. Means nothing to a socket file.
void giveUpAfter(int seconds, int socket)
{
    const unsigned int milliseconds = static_cast<unsigned int>(seconds) * 1000;
    ::setsockopt(socket, IPPROTO_TCP, TCP_USER_TIMEOUT, &milliseconds, sizeof milliseconds);
}

// Whether the system holds bytes that the other side has not confirmed.
bool isUnconfirmed(int socket)
{
    int bytes = 0;
    return ::ioctl(socket, SIOCOUTQ, &bytes) == 0 && bytes > 0;
}

std::string firstLineOf(const std::filesystem::path& file)
{
    std::string line;
    std::ifstream stream{file};
    std::getline(stream, line);
    return line;
}

} // namespace

class BrokerLink::Impl {
public:
    Impl(BrokerLinkSettings settings, Clock clock)
        : settings_{std::move(settings)}
        , clock_{std::move(clock)}
        , lookUp_{settings_.address.socket.empty() ? settings_.address.host : std::string{},
              settings_.resolve}
        , retry_{settings_.firstRetryMilliseconds}
        , nextTry_{clock_()}
    {
        if (const std::string problem = problemOf(settings_.address); !problem.empty())
            throw basic::Error{connectionFailed, "Broker", problem};
        if (!isClientId(settings_.client))
            throw basic::Error{connectionFailed, "Broker",
                "the client id is empty or has characters that no broker takes: " + settings_.client};
        initialiseLibraryOnce();
    }

    void start(LinkReceiver& receiver, std::vector<std::string> subscriptions)
    {
        // No failure, so there is nothing to wait for.
        const int retry = retry_;
        drop("other topics are wanted");
        retry_ = retry;
        nextTry_ = clock_();
        receiver_ = &receiver;
        subscriptions_ = std::move(subscriptions);
    }

    void setWill(std::string topic, std::string payload)
    {
        willTopic_ = std::move(topic);
        will_ = std::move(payload);
    }

    void poll(int wanted)
    {
        const int milliseconds = std::max(wanted, 0); // below 0 the system waits for ever
        dropWhatFailed();
        if (!client_ && clock_() >= nextTry_ && !connectWithin(milliseconds)) return;
        if (!client_) {
            const std::int64_t wait = std::clamp<std::int64_t>(nextTry_ - clock_(), 0, milliseconds);
            ::poll(nullptr, 0, static_cast<int>(wait));
            return;
        }
        if (const int result = exchange(milliseconds); result != MOSQ_ERR_SUCCESS) fail(reasonOf(result));
        dropWhatFailed();
        if (client_ && !up_ && clock_() - connectedAt_ > settings_.connectMilliseconds)
            drop("the broker does not answer");
        if (subscribed_ && !up_) {
            up_ = true;
            upAt_ = clock_();
            trouble_.clear();
            receiver_->linkUp();
        }
    }

    bool publish(const std::string& topic, std::string_view payload, Keep keep, int expireSeconds)
    {
        if (!client_ || !up_) return false;
        mosquitto_property* properties = nullptr;
        // A command that knows no end could be carried out late: without the property it must not leave.
        if (expireSeconds > 0
            && mosquitto_property_add_int32(
                   &properties, MQTT_PROP_MESSAGE_EXPIRY_INTERVAL, static_cast<std::uint32_t>(expireSeconds))
                != MOSQ_ERR_SUCCESS)
            return false;
        const int result = mosquitto_publish_v5(client_.get(), nullptr, topic.c_str(),
            static_cast<int>(payload.size()), payload.data(), 0, keep == Keep::Retained, properties);
        mosquitto_property_free_all(&properties);
        if (result == MOSQ_ERR_SUCCESS) return true;
        if (isFaultOfMessage(result)) return false;
        fail(reasonOf(result)); // dropped by the next poll, so that nobody is called from here
        return false;
    }

    bool isUp() const { return up_ && failure_.empty(); }
    bool isSending() const { return client_ && mosquitto_want_write(client_.get()); }
    bool isOnTheWay() const { return isSending() || (client_ && isUnconfirmed(descriptor())); }
    int descriptor() const { return client_ ? mosquitto_socket(client_.get()) : -1; }
    const std::string& trouble() const { return trouble_; }

    void drop(std::string_view reason)
    {
        if (!client_) return;
        say(reason);
        if (!note_.empty()) trouble_.append(" (").append(std::exchange(note_, {})).append(")");
        forgetWhatIsUnsent(descriptor());
        client_.reset();
        const bool wasUp = std::exchange(up_, false);
        subscribed_ = false;
        failure_.clear();
        // Two clients of one name end each other's connections; each must wait longer than the other's has lasted.
        if (wasUp && clock_() - upAt_ > 2 * std::int64_t{settings_.lastRetryMilliseconds})
            retry_ = settings_.firstRetryMilliseconds;
        retryLater();
        if (wasUp) receiver_->linkDown(trouble_);
    }

    void sayGoodbye()
    {
        if (!client_) return;
        mosquitto_disconnect(client_.get());
        client_.reset();
    }

private:
    // False when there is no address after so long.
    bool connectWithin(int milliseconds)
    {
        const auto problem = lookUp_.poll(milliseconds);
        if (!problem) {
            if (trouble_.empty()) say("waiting for the address of this host");
            return false;
        }
        if (problem->empty()) {
            // The library asks for the address itself, and waits; the answer has just been there.
            connect();
        } else {
            say(*problem);
            retryLater();
        }
        return true;
    }

    void connect()
    {
        connectedAt_ = clock_();
        note_.clear();
        client_.reset(mosquitto_new(settings_.client.c_str(), true, this));
        if (!client_)
            throw basic::Error{connectionFailed, "Broker", "no client: " + reasonOf(MOSQ_ERR_ERRNO)};
        if (const int result = open(*client_); result != MOSQ_ERR_SUCCESS) return drop(reasonOf(result));
        giveUpAfter(settings_.keepAliveSeconds, descriptor());
    }

    void say(std::string_view reason) { trouble_ = settings_.address.text().append(": ").append(reason); }

    void retryLater()
    {
        nextTry_ = clock_() + retry_;
        retry_ = std::min(2 * retry_, settings_.lastRetryMilliseconds);
    }

    int open(mosquitto& client)
    {
        mosquitto_int_option(&client, MOSQ_OPT_PROTOCOL_VERSION, MQTT_PROTOCOL_V5);
        mosquitto_int_option(&client, MOSQ_OPT_TCP_NODELAY, 1);
        mosquitto_connect_v5_callback_set(&client, [](mosquitto*, void* self, int code, int, const auto*) {
            static_cast<Impl*>(self)->guarded(&Impl::connected, code);
        });
        mosquitto_subscribe_v5_callback_set(
            &client, [](mosquitto*, void* self, int, int count, const int* granted, const auto*) {
                static_cast<Impl*>(self)->guarded(&Impl::granted, granted, count);
            });
        mosquitto_disconnect_v5_callback_set(&client, [](mosquitto*, void* self, int code, const auto*) {
            static_cast<Impl*>(self)->guarded(&Impl::ended, code);
        });
        mosquitto_message_v5_callback_set(
            &client, [](mosquitto*, void* self, const mosquitto_message* message, const auto*) {
                static_cast<Impl*>(self)->guarded(&Impl::received, *message);
            });
        mosquitto_log_callback_set(&client, [](mosquitto*, void* self, int level, const char* text) {
            if (level == MOSQ_LOG_ERR) static_cast<Impl*>(self)->guarded(&Impl::note, text);
        });
        if (!willTopic_.empty())
            mosquitto_will_set_v5(
                &client, willTopic_.c_str(), static_cast<int>(will_.size()), will_.data(), 0, true, nullptr);
        if (const int result = identify(client); result != MOSQ_ERR_SUCCESS) return result;
        const BrokerAddress& address = settings_.address;
        if (!address.socket.empty())
            return mosquitto_connect_async(&client, address.socket.c_str(), 0, settings_.keepAliveSeconds);
        return mosquitto_connect_async(
            &client, address.host.c_str(), address.port, settings_.keepAliveSeconds);
    }

    int identify(mosquitto& client)
    {
        const BrokerAddress& address = settings_.address;
        if (!address.user.empty()) {
            const std::string password =
                address.passwordFile.empty() ? std::string{} : firstLineOf(address.passwordFile);
            const int result = mosquitto_username_pw_set(
                &client, address.user.c_str(), password.empty() ? nullptr : password.c_str());
            if (result != MOSQ_ERR_SUCCESS) return result;
        }
        if (address.authority.empty()) return MOSQ_ERR_SUCCESS;
        const bool own = !address.certificate.empty();
        return mosquitto_tls_set(&client, address.authority.c_str(), nullptr,
            own ? address.certificate.c_str() : nullptr, own ? address.key.c_str() : nullptr,
            [](char*, int, int, void*) { return 0; }); // no password is ever asked for at a terminal
    }

    // Waits for the socket and moves what is there, in both directions.
    int exchange(int milliseconds)
    {
        pollfd socket{mosquitto_socket(client_.get()), POLLIN, 0};
        if (socket.fd < 0) return MOSQ_ERR_NO_CONN;
        for (int packets = 0; packets < mostPacketsAtOnce; ++packets) {
            socket.events = static_cast<short>(POLLIN | (mosquitto_want_write(client_.get()) ? POLLOUT : 0));
            if (::poll(&socket, 1, packets == 0 ? milliseconds : 0) <= 0) break;
            if (socket.revents & POLLOUT)
                if (const int result = mosquitto_loop_write(client_.get(), 1); result != MOSQ_ERR_SUCCESS)
                    return result;
            if (socket.revents & (POLLIN | POLLERR | POLLHUP))
                if (const int result = mosquitto_loop_read(client_.get(), 1); result != MOSQ_ERR_SUCCESS)
                    return result;
            if (!failure_.empty()) return MOSQ_ERR_SUCCESS;
        }
        return mosquitto_loop_misc(client_.get());
    }

    // For all that the library calls: it holds its locks meanwhile and would never give them back to an exception.
    template <class... Parameters, class... Arguments>
    void guarded(void (Impl::*action)(Parameters...), const Arguments&... arguments) noexcept
    try {
        (this->*action)(arguments...);
    } catch (...) {
        if (!thrown_) thrown_ = std::current_exception();
        fail("a message could not be taken");
    }

    void fail(std::string_view reason)
    {
        if (failure_.empty()) failure_ = reason;
    }

    void dropWhatFailed()
    {
        if (failure_.empty()) return;
        const std::exception_ptr thrown = std::exchange(thrown_, nullptr);
        drop(std::string{failure_});
        if (thrown) std::rethrow_exception(thrown);
    }

    // What the library tells of a failed encryption besides its number: which certificate was not believed, and why.
    void note(const char* text)
    {
        if (note_.empty()) note_ = text;
    }

    // A number of the library's own, or what the broker said.
    void ended(int code)
    {
        if (code == MQTT_RC_SESSION_TAKEN_OVER) return fail("another client has this name");
        // Not every broker says when another client took the name.
        if (code == MOSQ_ERR_CONN_LOST && up_)
            return fail("the connection was lost, or another client has this name");
        fail(code < firstReasonOfBroker ? mosquitto_strerror(code) : mosquitto_reason_string(code));
    }

    void connected(int code)
    {
        if (code != 0) return fail(mosquitto_reason_string(code));
        if (subscriptions_.empty()) {
            subscribed_ = true;
            return;
        }
        std::vector<char*> filters;
        for (std::string& subscription : subscriptions_)
            filters.push_back(subscription.data());
        // Own messages and, on a renewed subscription, retained ones are wanted as the broker gives them by default.
        const int result = mosquitto_subscribe_multiple(
            client_.get(), nullptr, static_cast<int>(filters.size()), filters.data(), 0, 0, nullptr);
        if (result != MOSQ_ERR_SUCCESS) fail(reasonOf(result));
    }

    void granted(const int* qualities, int count)
    {
        for (int i = 0; i < count; ++i)
            if (qualities[i] >= 0x80)
                return fail(std::string{"the broker refuses the topic "}.append(
                    subscriptions_[std::min(static_cast<std::size_t>(i), subscriptions_.size() - 1)]));
        subscribed_ = true;
    }

    void received(const mosquitto_message& message)
    {
        const std::string_view payload{
            static_cast<const char*>(message.payload), static_cast<std::size_t>(message.payloadlen)};
        // A broker may send retained messages before it has told that the subscription is in force.
        if (receiver_ && failure_.empty()) receiver_->received(message.topic, payload, message.retain);
    }

    BrokerLinkSettings settings_;
    Clock clock_;
    LinkReceiver* receiver_ = nullptr;
    std::vector<std::string> subscriptions_;
    std::string willTopic_;
    std::string will_;
    Handle client_;
    bool subscribed_ = false;
    bool up_ = false;
    std::string failure_; // of the present client, which the next poll drops
    std::string note_; // to it
    std::exception_ptr thrown_; // by the receiver, with a failure
    std::string trouble_;
    HostLookUp lookUp_;
    int retry_; // milliseconds
    std::int64_t nextTry_;
    std::int64_t connectedAt_ = 0;
    std::int64_t upAt_ = 0;
};

BrokerLink::BrokerLink(BrokerLinkSettings settings, Clock clock)
    : impl_{std::make_unique<Impl>(std::move(settings), std::move(clock))}
{
}

BrokerLink::~BrokerLink() { impl_->sayGoodbye(); }

void BrokerLink::start(LinkReceiver& receiver, std::vector<std::string> subscriptions)
{
    impl_->start(receiver, std::move(subscriptions));
}

void BrokerLink::setWill(std::string topic, std::string payload)
{
    impl_->setWill(std::move(topic), std::move(payload));
}

void BrokerLink::poll(int milliseconds) { impl_->poll(milliseconds); }

bool BrokerLink::isUp() const { return impl_->isUp(); }

bool BrokerLink::publish(const std::string& topic, std::string_view payload, Keep keep, int expireSeconds)
{
    return impl_->publish(topic, payload, keep, expireSeconds);
}

bool BrokerLink::isSending() const { return impl_->isSending(); }

bool BrokerLink::isOnTheWay() const { return impl_->isOnTheWay(); }

void BrokerLink::drop(std::string_view reason) { impl_->drop(reason); }

int BrokerLink::descriptor() const { return impl_->descriptor(); }

std::string BrokerLink::trouble() const { return impl_->trouble(); }

} // namespace servopanel::mqtt
