#include "line_machine/faults.h"

#include <limits>

namespace servopanel::line_machine {

namespace {

int times(const mqtt::Members& members)
{
    return static_cast<int>(members.wholeOr("times", 0, std::numeric_limits<int>::max(), 1));
}

} // namespace

void Faults::take(std::string_view topic, std::string_view payload)
{
    constexpr std::int64_t hour = 3'600'000;
    const mqtt::Json json = mqtt::parseBounded(topic, payload);
    const mqtt::Members members{topic, json};
    const std::string fault = members.text("fault");
    if (fault == "none")
        *this = {};
    else if (fault == "refuse") {
        const auto outcome = mqtt::outcomeOfCode(members.text("code"));
        if (!outcome || *outcome == mqtt::Outcome::Done) members.fail("code", "is no refusal");
        refuseWith = *outcome;
        refuse = times(members);
    } else if (fault == "silent") {
        silentActs = members.booleanOr("acts", false);
        silent = times(members);
    } else if (fault == "slow") {
        slowMilliseconds = members.whole("milliseconds", 0, hour);
        slow = times(members);
    } else if (fault == "torn")
        torn = times(members);
    else if (fault == "heartless")
        heartless = members.booleanOr("on", true);
    else if (fault == "absent")
        absent = members.text("match");
    else if (fault == "doubt") {
        Doubt doubt{members.text("name"), {}, members.textOr("reason", "")};
        if (members.has("elements"))
            for (const mqtt::Json& element : members.array("elements")) {
                if (!mqtt::isWholeWithin(element, 0, std::numeric_limits<std::int32_t>::max()))
                    members.fail("elements", "must be whole numbers from 0 on");
                doubt.elements.push_back(element.get<std::size_t>());
            }
        doubts.push_back(std::move(doubt));
    } else if (fault == "change")
        changes.push_back({members.text("name"), members.any("value")});
    else if (fault == "restart")
        restart = true;
    else
        members.fail("fault", "is not known: " + fault);
}

} // namespace servopanel::line_machine
