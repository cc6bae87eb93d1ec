// The messages of a broker, with the faults that a simulated machine is ordered to have. The first line is the topic,
// the rest the payload.
#include "fuzz/fuzz.h"
#include "line_machine/faults.h"
#include "mqtt/messages.h"
#include "mqtt/protocol_error.h"
#include "mqtt/topics.h"

#include <cstdint>

namespace servopanel::fuzz {

namespace {

// What was read is written and read again.
template <class Read>
void thereAndBack(std::string_view topic, std::string_view payload, Read read)
{
    const std::string once = write(read(topic, payload));
    if (write(read(topic, once)) != once) broken("a message comes back as it was written");
}

mqtt::VariableDescription numbers(machine::VariableType type, std::size_t length)
{
    mqtt::VariableDescription description;
    description.name = "Ch1.numbers";
    description.type = type;
    description.length = length;
    return description;
}

void order(const std::string& name, std::string_view payload)
{
    line_machine::Faults faults;
    faults.take(name, payload);
    constexpr std::int64_t hour = 3'600'000; // in milliseconds
    if (faults.refuse < 0 || faults.silent < 0 || faults.slow < 0 || faults.torn < 0)
        broken("a fault is never less than none");
    if (faults.slowMilliseconds < 0 || faults.slowMilliseconds > hour)
        broken("an answer is an hour late at most");
    if (faults.refuseWith == mqtt::Outcome::Done) broken("a refused command is not done");
}

void look(const mqtt::Topic& topic, const std::string& name, std::string_view payload)
{
    using namespace mqtt;
    if (topic.kind == "state") thereAndBack(name, payload, readState);
    if (topic.kind == "desc") thereAndBack(name, payload, readDescriptionPart);
    if (topic.kind == "hb") thereAndBack(name, payload, readHeartbeat);
    if (topic.kind == "get") thereAndBack(name, payload, readGet);
    if (topic.kind == "cmd") thereAndBack(name, payload, readCommand);
    if (topic.kind == "ack") thereAndBack(name, payload, readAck);
    if (topic.kind == "fault") order(name, payload);
    if (topic.kind != "val") return;
    for (const VariableDescription& description :
        {numbers({basic::VariantType::Double, true}, 3), numbers({basic::VariantType::Int16, true}, 3),
            numbers({basic::VariantType::Text, true}, 2), numbers({basic::VariantType::Int16, false}, 0),
            numbers({basic::VariantType::Boolean, false}, 0)})
        try {
            readValue(name, payload, description);
        } catch (const ProtocolError&) {
        }
}

} // namespace

void feed(std::string_view bytes)
{
    const std::size_t end = bytes.find('\n');
    if (end == std::string_view::npos) return;
    const auto topic = mqtt::Topic::parse(bytes.substr(0, end));
    if (!topic) return;
    const std::string name = topic->text();
    if (!mqtt::Topic::parse(name)) broken("a topic comes back as it was written");
    try {
        look(*topic, name, bytes.substr(end + 1));
    } catch (const mqtt::ProtocolError&) {
    }
}

} // namespace servopanel::fuzz
