#include "check/walk.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "basic/text.h"
#include "check/look_around.h"
#include "check/start_values.h"
#include "check/supposed_program.h"
#include "check/watch.h"
#include "machine/access_level.h"
#include "platform/ids.h"
#include "recording/memory/memory_host.h"
#include "recording/memory/sibling_controls.h"
#include "recording/project/folder_project.h"
#include "recording/replay.h"
#include "recording/scenario/player.h"

#include <algorithm>
#include <memory>

namespace servopanel::check {

namespace {

using basic::decimal;
using basic::Variant;
using platform::ChildId;

constexpr std::string_view menu = "ServoMenu";
constexpr std::string_view page = "ServoMain";
constexpr std::string_view machineCount = "parameter<.maschinenanzahl>";
constexpr std::string_view designation = "parameter<.maschinenbez_";
constexpr std::string_view servoCount = "parameter<.servo_anzahl_";
constexpr std::int16_t mostServos = 50; // of a machine, the library's own limit
constexpr std::int16_t highestLevel = machine::highestAccessLevel;

namespace keys {
constexpr std::int16_t next = 6;
constexpr std::int16_t secondDiagnosis = 8;
constexpr std::int16_t machine = 9;
constexpr std::int16_t confirm = 10;
constexpr std::int16_t leave = 11;
constexpr std::int16_t hardware = 31;
} // namespace keys

std::int16_t numberOf(const Variant* value)
{
    try {
        return value == nullptr ? std::int16_t{0} : basic::toInt16(*value);
    } catch (const basic::Error&) {
        return 0;
    }
}

std::string textOf(const Variant& value)
{
    try {
        return basic::toText(value);
    } catch (const basic::Error&) {
        return {};
    }
}

// How one start of the panel differs from another.
struct Start {
    std::int16_t machine = 1;
    int resolution = 1280;
    std::int16_t level = 0;
    bool rightToLeft = false;
    bool mayEnter = true;
    bool allOptions = false; // whatever the project says
    bool changesValues = false; // on every page; what is written is the same at every resolution
    const SupposedProgram* supposed = nullptr; // for a machine whose servos the project does not list
};

// One start of the panel, with a library and a memory of its own: pictures are asked for anew.
class Visit {
public:
    Visit(const CheckedProject& project, KeptDefinitions& definitions, const Start& start, Asked& asked,
        Findings& findings)
        : project_{project}
        , start_{start}
        , asked_{asked}
        , watch_{host_, project, definitions, asked, findings}
        , around_{watch_, asked, findings, project}
    {
        host_.useProject(std::make_shared<recording::FolderProject>(project.folder, host_.world().failures));
        host_.world().inputPermission = start.mayEnter ? std::int16_t{-1} : std::int16_t{0};
        watch_.set("parameter<.aufloesung>", static_cast<std::int16_t>(start.resolution));
        watch_.set("Ch-1.intern<.aktuelle_maschine>", start.machine);
        watch_.set("Ch-1.intern<.servo_zeiger>", std::int16_t{0});
        watch_.set("Ch-1.intern<.passwort>", start.level);
        watch_.set("Ch-1.param_client<.arabisch>", start.rightToLeft);
        if (start.supposed != nullptr) watch_.suppose(*start.supposed);
        if (start.allOptions) {
            watch_.set("parameter<.mit_navi>", true);
            watch_.switchAllOptionsOn();
        }
        setView("the first page of machine " + machineName());
        maker_ = recording::makeLibrary(watch_.platform());
        player_.create();
        player_.show();
    }
    Visit(const Visit&) = delete;
    Visit& operator=(const Visit&) = delete;
    ~Visit() { host_.discardControls(); }

    // Without a servo there is nothing to go through, and why is among the findings.
    bool findsServos() const { return !watch_.servos().empty(); }

    std::string machineName()
    {
        const Variant* const variable =
            host_.world().variables.find(std::string{designation} + decimal(start_.machine) + ">");
        const std::string name = variable == nullptr ? std::string{} : textOf(*variable);
        return name.empty() ? decimal(start_.machine) : name;
    }

    // Menu and all servos with all their pages.
    void wholeMachine()
    {
        if (!findsServos()) return;
        if (isShown(menu)) wholeMenu();
        if (!isShown(page)) return;
        for (std::int16_t place = 1; place <= mostServos; ++place) {
            wholeServo(place);
            if (!isOn(page, keys::next)) break;
            press(page, keys::next);
        }
    }

    // The first view and the first page: what depends on the access level.
    void firstPages()
    {
        if (!findsServos()) return;
        look(isShown(menu) ? "the menu of machine " + machineName() : servoView(1));
        openFirstServo();
        if (isShown(page)) look(servoView(1));
    }

    // A touch by somebody whose input is not permitted.
    void refusedTouch()
    {
        if (!findsServos()) return;
        openFirstServo();
        if (!isShown(page)) return;
        setView(servoView(1));
        touchSetpoint();
    }

    // The keys that lead to other screens, each from a start of its own.
    void leave(std::int16_t key, bool fromMenu)
    {
        if (!findsServos()) return;
        if (!fromMenu) openFirstServo();
        const std::string_view part = isShown(menu) ? menu : page;
        if (!isShown(part)) return;
        setView(part == menu ? "the menu of machine " + machineName() : servoView(1));
        press(part, key);
    }

private:
    // The servo at a place of the list of active ones.
    std::string servoNumber(std::int16_t place)
    {
        const std::vector<std::string>& servos = watch_.servos();
        const auto number = static_cast<std::size_t>(place);
        return number <= servos.size() ? servos[number - 1] : "at place " + decimal(place);
    }
    std::string ofServo(std::int16_t place)
    {
        return " of servo " + servoNumber(place) + " of machine " + machineName();
    }
    std::string servoView(std::int16_t place) { return "the page" + ofServo(place); }

    bool isShown(std::string_view part)
    {
        recording::ControlInstance* const control = host_.servo()->inner(part);
        return control != nullptr && control->self().isShown();
    }

    std::shared_ptr<recording::MemoryFooter> footer(std::string_view part)
    {
        recording::ControlInstance* const control = host_.servo()->inner(part);
        return std::dynamic_pointer_cast<recording::MemoryFooter>(control->form().find(ChildId{"Fußzeile"}));
    }
    bool isOn(std::string_view part, std::int16_t key)
    {
        const auto keys = footer(part);
        return keys && keys->isKeyOn(key);
    }
    void press(std::string_view part, std::int16_t key)
    {
        if (isOn(part, key)) player_.key(part, key, false);
    }

    void setView(const std::string& view) { watch_.setView(view, start_.resolution); }
    // Notes all that is to be seen; the view counts for what is asked for from now on, too.
    void look(const std::string& view)
    {
        setView(view);
        for (const std::string_view part : {menu, page})
            if (isShown(part)) around_.look(*host_.servo()->inner(part));
    }

    void wholeMenu()
    {
        const std::string view = "the menu of machine " + machineName();
        setView(view);
        const auto bar = host_.servo()->inner(menu)->form().find(ChildId{"ScrollBar"});
        const Variant rows = bar ? bar->get(platform::ids::ScrollBar::Anzahl) : Variant{};
        const std::int16_t positions = std::min(numberOf(&rows), mostServos);
        for (std::int16_t position = positions; position >= 1; --position) {
            player_.scroll(menu, position);
            look(view);
        }
        openFirstServo();
    }

    // Touches the first key of the menu.
    void openFirstServo()
    {
        if (!isShown(menu)) return;
        setView(servoView(1));
        const auto key = host_.servo()->inner(menu)->form().find(ChildId{"BildIm", 1});
        if (!key) return;
        const auto inside = [&](const platform::Member& edge) {
            return basic::toSingle(key->get(edge)) + host_.world().twipsPerPixelX;
        };
        const float x = inside(platform::names::Left);
        const float y = inside(platform::names::Top);
        player_.pointer({}, ChildId::noIndex, "MouseDown", x, y);
        player_.pointer({}, ChildId::noIndex, "MouseUp", x, y);
    }

    void wholeServo(std::int16_t place)
    {
        noteServo(place);
        look(servoView(place));
        bool isWhole = !watch_.isTroubled();
        if (start_.changesValues) changeValue(place);
        setView("diagnosis page 1" + ofServo(place));
        press(page, keys::confirm);
        look("diagnosis page 1" + ofServo(place));
        isWhole = isWhole && !watch_.isTroubled();
        if (isOn(page, keys::secondDiagnosis)) {
            setView("diagnosis page 2" + ofServo(place));
            press(page, keys::secondDiagnosis);
            look("diagnosis page 2" + ofServo(place));
            isWhole = isWhole && !watch_.isTroubled();
        }
        if (isWhole) ++asked_.wholeServos;
        setView(servoView(place));
        press(page, keys::confirm);
        // What comes next is the next servo's.
        setView(servoView(static_cast<std::int16_t>(place + 1)));
    }

    void noteServo(std::int16_t place)
    {
        const jet::ServoName servo{machineName(), servoNumber(place)};
        const auto same = [&](const jet::ServoName& each) { return !(each < servo) && !(servo < each); };
        if (std::none_of(asked_.servos.begin(), asked_.servos.end(), same)) asked_.servos.push_back(servo);
    }

    // Changes a setpoint and confirms it, which writes all values of the servo.
    void changeValue(std::int16_t place)
    {
        const auto input = touchSetpoint();
        if (!input) return;
        const Variant low = input->get(platform::ids::VWSVarIn::Untergrenze);
        const Variant high = input->get(platform::ids::VWSVarIn::Obergrenze);
        player_.acceptMask(textOf(input->get(platform::ids::VWSVarIn::Wert)) == textOf(low) ? high : low);
        player_.cancelMask(); // when it takes neither
        look(servoView(place));
        press(page, keys::confirm);
    }

    // The first input of the page that takes a touch; nothing when there is none.
    std::shared_ptr<recording::MemoryControl> touchSetpoint()
    {
        const recording::MemoryForm& form = host_.servo()->inner(page)->form();
        std::optional<ChildId> first;
        form.forEach([&](ChildId id, recording::MemoryControl& control) {
            const bool isInput = control.className() == platform::classes::VWSVarIn && id.hasIndex();
            if (!first && isInput && control.isShown() && control.isEnabled()) first = id;
        });
        if (!first) return nullptr;
        const auto input = form.find(*first);
        player_.touch(first->name, first->index);
        return input;
    }

    const CheckedProject& project_;
    Start start_;
    Asked& asked_;
    recording::MemoryHost host_{[] {}};
    Watch watch_;
    LookAround around_;
    recording::ControlMaker maker_;
    recording::TraceSink sink_{[](std::string_view) {}};
    recording::PathNames paths_;
    recording::Player player_{host_,
        [this](std::string_view className, const platform::ControlPlatform& platform) {
            return maker_(className, platform);
        },
        sink_, paths_};
};

const Variant* valueOf(const CheckedProject& project, const std::string& name)
{
    for (const auto& variable : project.file.variables)
        if (variable.name == name) return &variable.value;
    return nullptr;
}

// What would be asked for if everything that a project may switch on were on. What is missing for that is no finding.
void walkWithAllOptions(
    const CheckedProject& project, KeptDefinitions& definitions, Start start, Asked& asked)
{
    Asked wanted;
    Findings ignored;
    start.allOptions = true;
    start.changesValues = true;
    Visit{project, definitions, start, wanted, ignored}.wholeMachine();
    asked.textKeys.merge(wanted.textKeys);
    asked.variableNames.merge(wanted.variableNames);
}

// A machine from every start that shows something else.
void walkMachine(const CheckedProject& project, KeptDefinitions& definitions, std::int16_t machine,
    bool anyRightToLeft, Asked& asked, Findings& findings)
{
    Start service{machine, *project.resolutions.begin(), highestLevel};
    std::optional<SupposedProgram> supposed;
    {
        const std::size_t known = asked.errors.size();
        Visit first{project, definitions, service, asked, findings};
        if (!first.findsServos()) {
            asked.errors.resize(known); // what the library says of a page without a servo follows from that
            const std::string name = first.machineName();
            asked.machinesWithoutServos.push_back(name);
            service.supposed = &supposed.emplace(project, name);
        }
    }
    const auto visit = [&](const Start& start) {
        return Visit{project, definitions, start, asked, findings};
    };
    for (const int resolution : project.resolutions) {
        Start start = service;
        start.resolution = resolution;
        start.changesValues = resolution == service.resolution;
        visit(start).wholeMachine();
        start.changesValues = false;
        for (start.level = 0; start.level < highestLevel; ++start.level)
            visit(start).firstPages();
    }
    if (anyRightToLeft) {
        Start start = service;
        start.rightToLeft = true;
        visit(start).wholeMachine();
    }
    for (const std::int16_t key : {keys::machine, keys::leave, keys::hardware})
        for (const bool fromMenu : {true, false})
            visit(service).leave(key, fromMenu);
    Start locked = service;
    locked.mayEnter = false;
    visit(locked).refusedTouch();
    walkWithAllOptions(project, definitions, service, asked);
}

} // namespace

void walkThrough(const CheckedProject& project, Asked& asked, Findings& findings)
{
    const Variant* const count = valueOf(project, std::string{machineCount});
    const std::int16_t machines = machinesOf(project);
    if (numberOf(count) > mostMachines || (count != nullptr && numberOf(count) < 1))
        findings.add("project.json", project.lineOfVariable(std::string{machineCount}),
            "variable \"" + std::string{machineCount} + "\" must be from 1 to " + decimal(mostMachines)
                + ", the number of machines: the panel finds none");
    asked.machines = static_cast<std::size_t>(machines);

    const bool anyRightToLeft = std::any_of(project.file.languages.begin(), project.file.languages.end(),
        [](const auto& language) { return language.rightToLeft; });
    KeptDefinitions definitions{project.mapping};
    for (std::int16_t machine = 1; machine <= machines; ++machine) {
        if (asked.skippedMachines.contains(machine)) continue;
        const std::string servos = std::string{servoCount} + decimal(machine) + ">";
        const Variant* const configured = valueOf(project, servos);
        if (configured != nullptr && (numberOf(configured) < 1 || numberOf(configured) > mostServos))
            findings.add("project.json", project.lineOfVariable(servos),
                "variable \"" + servos + "\" must be from 1 to " + decimal(mostServos)
                    + ", the number of servos: the menu shows none or not all");
        walkMachine(project, definitions, machine, anyRightToLeft, asked, findings);
    }
}

} // namespace servopanel::check
