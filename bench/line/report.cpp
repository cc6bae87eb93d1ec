#include "report.h"

#include <mosquitto.h>
#include <nlohmann/json.hpp>

namespace servopanel::bench {

namespace {

nlohmann::json sharesOf(const std::vector<RunningLine::Shares>& measured)
{
    nlohmann::json list = nlohmann::json::array();
    for (const RunningLine::Shares& shares : measured)
        list.push_back({{"panel", shares.panel}, {"broker", shares.broker}, {"machines", shares.machines},
            {"others", shares.others}});
    return list;
}

std::string brokerVersion()
{
    int major = 0;
    int minor = 0;
    int revision = 0;
    mosquitto_lib_version(&major, &minor, &revision);
    return std::to_string(major) + '.' + std::to_string(minor) + '.' + std::to_string(revision);
}

} // namespace

std::string report(const Findings& findings)
{
    const LineSize& size = findings.size;
    const nlohmann::json text = {
        {"versions", {{"libmosquitto", brokerVersion()}, {"Qt", QT_VERSION_TEXT}, {"g++", __VERSION__}}},
        {"size",
            {{"machines", size.machines}, {"servos", size.servos}, {"period_ms", size.periodMilliseconds},
                {"variables", size.machines * size.servos * variablesOfServo}}},
        {"machines_up_s", findings.machinesUp},
        {"panel_starts_s", findings.panelStarts},
        {"memory_mib",
            {{"panel", findings.memories.panel}, {"broker", findings.memories.broker},
                {"machines", findings.memories.machines}}},
        {"values_per_s", {{"all", findings.valuesOfAll}, {"alone", findings.valuesOfOne}}},
        {"seconds", findings.seconds},
        {"shares_percent", {{"all", sharesOf(findings.all)}, {"alone", sharesOf(findings.alone)}}},
        {"following_all_percent", findings.followingAll},
        {"writes_ms", findings.writes},
        {"echoes_ms", findings.echoes},
    };
    return text.dump(1) + '\n';
}

} // namespace servopanel::bench
