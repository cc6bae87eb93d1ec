#include "panel_on_broker/real_line.h"

#include "mqtt/messages.h"
#include "mqtt/topics.h"
#include "portable/temporary_folder.h"
#include "support/ends_with_us.h"

#include <sstream>

namespace servopanel::testing {

namespace {

// The standard project with an input for servo 5 too, and a second machine of the same kind, whose first setpoint is
// another.
std::string twoMachines()
{
    std::istringstream lines{standardProject
        + "text Servo.M1.Servo5.1 = \"Length;mm\"\n"
          "db Servo\\Servo.mdb M1 Ch1.M1_T_servo_5<.mM1_servo_para_5> 0 0 1000 0 100 1\n"};
    std::string all;
    for (std::string line; std::getline(lines, line);) {
        if (line == "var parameter<.maschinenanzahl> = 1")
            line = "var parameter<.maschinenanzahl> = 2\nvar parameter<.maschinenbez_2> = \"M2\"\n"
                   "var parameter<.servo_anzahl_2> = 3";
        if (line == "Diag2Servo1=TRUE") line += "\n[2Machine]\nServo1=3\nServo2=5\nServo3=7";
        all += line + "\n";
        if (!line.starts_with("var Ch1.M1_") && !line.starts_with("text Servo.M1.")
            && !line.starts_with("db Servo\\Servo.mdb M1 "))
            continue;
        for (std::size_t at = 0; (at = line.find("M1", at)) != std::string::npos;)
            line.replace(at, 2, "M2");
        if (const std::size_t first = line.find("[1.5,"); first != std::string::npos)
            line.replace(first, 5, "[7.5,");
        all += line + "\n";
    }
    return all;
}

void addSimulation(const TestProject& project)
{
    std::string file = tests::contentOf(project.file("project.json"));
    file.insert(1, R"("machine": {"kind": "simulated", "period_ms": 20, "lines": [
{"machine": "M1", "ramp_per_s": 1, "phases": [{"speed": 1, "seconds": 1}]},
{"machine": "M2", "ramp_per_s": 1, "phases": [{"speed": 1, "seconds": 1}]}]},
)");
    project.write("project.json", file);
}

} // namespace

Onlooker::Onlooker(const mqtt::BrokerAddress& address)
    : commandLink_{{.address = address,
        .client = "onlooker-commands",
        .firstRetryMilliseconds = 20,
        .lastRetryMilliseconds = 100}}
    , valueLink_{{.address = address,
          .client = "onlooker-values",
          .firstRetryMilliseconds = 20,
          .lastRetryMilliseconds = 100}}
    , values_{{.panel = "onlooker", .machines = {"M1"}, .viewing = true}, valueLink_}
{
    commandLink_.start(*this, {"pm/v1/+/cmd/+", "pm/v1/+/ack/+"});
}

void Onlooker::poll()
{
    commandLink_.poll(0);
    values_.poll(0);
}

bool Onlooker::knows(const std::string& variable) const
{
    return values_.standing(variable).quality == mqtt::Quality::Good;
}

void Onlooker::order(const std::string& fault)
{
    EXPECT_TRUE(commandLink_.publish("pm/v1/M1/fault", fault, mqtt::Link::Keep::No, 0));
}

void Onlooker::received(std::string_view topic, std::string_view payload, bool)
{
    if (mqtt::Topic::parse(topic)->kind == "cmd")
        commands.push_back(mqtt::readCommand(topic, payload).name);
    else
        ++answers;
}

RealLine::RealLine()
    : project{twoMachines()}
{
    addSimulation(project);
    // The panel has its definitions in memory; no machine starts with the empty file that stands for them.
    project.remove("Servo/Servo.mdb");
}

RealLine::~RealLine() { killMachines(); }

void RealLine::SetUp()
{
    ASSERT_TRUE(broker.start());
    startMachines({"--broker", QString::fromStdString(broker.socketAddress().text()), "--faults"});
    onlooker = std::make_unique<Onlooker>(broker.socketAddress());
    ASSERT_TRUE(until([&] { return onlooker->isUp() && onlooker->knows(setpoints); }))
        << machines.readAllStandardError().toStdString();
}

void RealLine::startMachines(const QStringList& options)
{
    if (!options.isEmpty())
        machines.setArguments(QStringList{QString::fromStdString(project.folder().string())} + options);
    machines.setProgram(SERVO_MACHINE);
    machines.setChildProcessModifier([self = ::getpid()] { endWith(self); });
    machines.start();
    ASSERT_TRUE(machines.waitForStarted());
}

void RealLine::killMachines()
{
    machines.kill();
    machines.waitForFinished();
}

std::unique_ptr<BrokerPanel> RealLine::makePanel(const std::string& name)
{
    auto made = std::make_unique<BrokerPanel>(project, broker.address(), name);
    EXPECT_TRUE(made->isShown);
    return made;
}

std::unique_ptr<BrokerPanel> RealLine::openPanel(const std::string& name, int menuKey)
{
    auto made = makePanel(name);
    made->hands->menuKey(menuKey);
    EXPECT_TRUE(until([&] { return made->isGood("SollwertL", 1); })) << made->answer();
    return made;
}

bool RealLine::until(const std::function<bool()>& condition)
{
    constexpr int longest = 20'000; // milliseconds, of a test that fails
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > longest) return false;
        if (onlooker) onlooker->poll();
        QTest::qWait(5);
    }
    return true;
}

std::optional<double> RealLine::element(const std::string& variable, std::size_t i)
{
    if (!onlooker->knows(variable)) return {};
    return numbers(variable).at(i);
}

Variant RealLine::held(const std::string& variable)
{
    EXPECT_TRUE(until([&] { return onlooker->knows(variable); })) << variable;
    return onlooker->held(variable);
}

std::vector<double> RealLine::numbers(const std::string& variable)
{
    std::vector<double> numbers;
    const Variant value = held(variable);
    for (const Variant& element : value.get<basic::Array>()->elements)
        numbers.push_back(*element.get<double>());
    return numbers;
}

} // namespace servopanel::testing
