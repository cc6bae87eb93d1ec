#include "check/watch.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "basic/text.h"
#include "check/ini_files.h"
#include "machine/servo_families.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace servopanel::check {

namespace {

using basic::Variant;

constexpr std::string_view passiveFamily = "_servopassiv_";
constexpr std::string_view servoCount = "parameter<.servo_anzahl_";
constexpr const char* definitionFile = "Servo/Servo.mdb";
constexpr char markStart = '\x02';
constexpr char markEnd = '\x03';

} // namespace

class Watch::Variables : public platform::ProcessVarAccess {
public:
    explicit Variables(Watch& watch)
        : watch_{watch}
    {
    }
    Variant ReadValue(std::string_view name) override { return watch_.read(name); }
    void WriteValue(std::string_view name, const Variant& value) override { watch_.write(name, value); }

private:
    Watch& watch_;
};

class Watch::Paths : public platform::PathHelper {
public:
    Paths(Watch& watch, std::shared_ptr<platform::PathHelper> inner)
        : watch_{watch}
        , inner_{std::move(inner)}
    {
    }
    std::string path(std::string_view name) override { return inner_->path(name); }
    void openScreen(std::int16_t number) override { watch_.asked_.screens.try_emplace(number, watch_.view_); }
    std::int16_t inputPermission() override { return inner_->inputPermission(); }

private:
    Watch& watch_;
    std::shared_ptr<platform::PathHelper> inner_;
};

class Watch::Errors : public platform::ErrorDisplay {
public:
    explicit Errors(Watch& watch)
        : watch_{watch}
    {
    }
    void ErrMessage(
        std::int32_t number, std::string_view, std::string_view description, std::string_view text) override
    {
        // The composed report ends in the procedure's name, behind the last mark.
        const std::size_t mark = text.rfind("###");
        watch_.noteError(number, description, mark == std::string_view::npos ? text : text.substr(mark + 3));
    }
    void CloseMe() override { }

private:
    Watch& watch_;
};

// What is wrong in the definitions themselves is found without the library.
class Watch::Engine : public platform::DBEngine {
public:
    explicit Engine(Watch& watch)
        : watch_{watch}
    {
    }
    std::unique_ptr<platform::Database> open(std::string_view path) override
    {
        watch_.last_ = Access::Definitions;
        // A file that there is not has no path.
        watch_.lastFile_ = path.empty() ? definitionFile : watch_.relative(path).value_or(std::string{path});
        return watch_.definitions_.open(path);
    }

private:
    Watch& watch_;
};

Watch::Watch(recording::MemoryHost& host, const CheckedProject& project, KeptDefinitions& definitions,
    Asked& asked, Findings& findings)
    : host_{host}
    , inner_{host.platform()}
    , project_{project}
    , definitions_{definitions}
    , asked_{asked}
    , findings_{findings}
{
    constexpr std::string_view anyName = "x";
    folder_ = project.mapping.fullName(anyName);
    folder_.resize(folder_.size() - anyName.size());
    project.file.declareVariables(store_);
    for (const auto& variable : project.file.variables)
        host_.world().variables.set(variable.name, variable.value);
    host_.world().lookUpText = [this](std::string_view key) { return markOf(key); };
}

platform::LibraryPlatform Watch::platform()
{
    return {*this, *this, *this, *this, inner_.surroundings, *this};
}

void Watch::setView(std::string view, int resolution)
{
    view_ = std::move(view);
    resolution_ = resolution;
    last_ = Access::None;
}

void Watch::set(std::string_view name, const Variant& value)
{
    if (store_.find(name) == nullptr) return;
    try {
        store_.write(name, value, machine::Writer::Host);
        host_.world().variables.set(name, *store_.find(name));
    } catch (const basic::Error&) {
        // A type of the project's own choice has no room for it, which is told when the library reads it.
    }
}

std::string Watch::markOf(std::string_view key)
{
    asked_.textKeys.emplace(key);
    marked_.emplace_back(key);
    return markStart + std::to_string(marked_.size() - 1) + markEnd;
}

std::string Watch::keyOf(std::string_view text) const
{
    if (text.substr(0, 1) == "@") return std::string{text.substr(1)};
    const std::size_t start = text.find(markStart);
    const std::size_t end = text.find(markEnd);
    if (start == std::string_view::npos || end == std::string_view::npos) return {};
    std::size_t number = marked_.size();
    std::from_chars(text.data() + start + 1, text.data() + end, number);
    return number < marked_.size() ? marked_[number] : std::string{};
}

void Watch::variableFinding(const std::string& name, const std::string& what)
{
    // Without any servo the library goes on with a servo 0, which nobody means.
    if (servos_.empty() && name.find("_T_servo_") != std::string::npos) return;
    asked_.troubled.insert(name);
    troubled_.insert(view_);
    if (project_.wasRefused(name)) return;
    findings_.add(
        {"project.json", project_.lineOfVariable(name), "variable \"" + name + "\" " + what, {}, view_});
}

std::string Watch::variableOf(std::string_view family) const
{
    const auto variable = familyVariables_.find(family);
    return variable == familyVariables_.end() ? std::string{} : variable->second;
}

void Watch::requireVariable(const std::string& name)
{
    if (store_.find(name) == nullptr)
        variableFinding(name, "is missing: what the input shows is not written to it");
}

Variant Watch::read(std::string_view name)
{
    lastVariable_ = name;
    noteVariable(lastVariable_);
    if (const std::string_view family = machine::familyOf(name); !family.empty())
        familyVariables_[family] = lastVariable_;
    if (supposed_ != nullptr && name.starts_with(servoCount))
        return static_cast<std::int16_t>(supposed_->servos().size());
    if (name.find(passiveFamily) != std::string_view::npos) return readFlag(lastVariable_);
    if (store_.find(name) == nullptr) {
        last_ = Access::MissingVariable;
        variableFinding(lastVariable_, "is missing: the panel reports it and shows nothing of it");
        return store_.ReadValue(name); // fails as in the panel
    }
    last_ = Access::Variable;
    return host_.world().variables.read(name);
}

// Counts the servo among those that are shown by the library's own rule.
Variant Watch::readFlag(const std::string& name)
{
    if (!listed_) return true; // it is left out; what comes of its number says nothing
    const auto count = [&] {
        try {
            if (basic::equalsBoolean(lastFlag_, false)) {
                servos_.push_back(std::to_string(*listed_));
                return;
            }
        } catch (const basic::Error&) {
            // Neither true nor false.
        }
        noteUnshown(name);
    };
    if (store_.find(name) == nullptr) {
        count();
        last_ = Access::MissingVariable;
        variableFinding(name, "is missing: the panel reports it and shows nothing of it");
        return store_.ReadValue(name); // fails as in the panel
    }
    last_ = Access::Variable;
    lastFlag_ = host_.world().variables.read(name);
    // A servo that is switched off now may be wanted tomorrow: all of them are looked at.
    if (lastFlag_.holds<bool>()) lastFlag_ = false;
    count();
    return lastFlag_;
}

void Watch::noteUnshown(std::string_view flag)
{
    constexpr std::string_view start = "Ch1.";
    const std::size_t end = flag.find("_T_servo_");
    if (!flag.starts_with(start) || end == std::string_view::npos) return;
    asked_.unshownServos.insert(
        {std::string{flag.substr(start.size(), end - start.size())}, std::to_string(*listed_)});
}

void Watch::write(std::string_view name, const Variant& value)
{
    lastVariable_ = name;
    noteVariable(lastVariable_);
    last_ = Access::Variable;
    try {
        store_.WriteValue(name, value);
        host_.world().variables.write(name, *store_.find(name));
    } catch (const basic::Error& error) {
        last_ = Access::MissingVariable;
        const bool isMissing = store_.find(name) == nullptr;
        variableFinding(lastVariable_,
            isMissing ? "is missing: what the operator confirms is not written"
                      : "takes no such value, so that what the operator confirms is not written: "
                    + error.description);
        throw;
    }
}

void Watch::noteError(std::int32_t number, std::string_view description, std::string_view procedure)
{
    using basic::ErrorNumber;
    const auto is = [number](ErrorNumber known) { return number == static_cast<std::int32_t>(known); };
    switch (last_) {
    case Access::MissingVariable: return; // what follows from a finding
    case Access::Definitions:
    case Access::Picture:
        // They are looked at on their own, which mostly tells why.
        asked_.fileErrors.try_emplace(lastFile_, FileError{std::string{description}, view_});
        return;
    case Access::Variable: {
        const Variant* const value = store_.find(lastVariable_);
        const basic::Array* const array = value ? value->get<basic::Array>() : nullptr;
        if (is(ErrorNumber::SubscriptOutOfRange) && array != nullptr) {
            variableFinding(lastVariable_,
                "has too few elements (" + std::to_string(array->elements.size())
                    + "): the items behind them stay empty");
            return;
        }
        if (is(ErrorNumber::TypeMismatch) || is(ErrorNumber::Overflow)) {
            variableFinding(
                lastVariable_, "is of the wrong type: the panel reports it and shows nothing of it");
            return;
        }
        break;
    }
    case Access::Entry:
        if (is(ErrorNumber::Overflow)) return; // of an entry that is told with its line
        break;
    default: break;
    }
    LibraryError error{std::string{procedure}, std::string{description}, view_};
    if (std::find(asked_.errors.begin(), asked_.errors.end(), error) == asked_.errors.end())
        asked_.errors.push_back(std::move(error));
}

std::shared_ptr<platform::ProcessVarAccess> Watch::createProcessVarAccess()
{
    return std::make_shared<Variables>(*this);
}

std::shared_ptr<platform::PathHelper> Watch::createPathHelper()
{
    return std::make_shared<Paths>(*this, inner_.objects.createPathHelper());
}

std::shared_ptr<platform::ErrorDisplay> Watch::createErrorDisplay()
{
    return std::make_shared<Errors>(*this);
}

std::shared_ptr<platform::DBEngine> Watch::createDBEngine() { return std::make_shared<Engine>(*this); }

// Messages about files come from what is noted already; one of the project's texts is seen here only.
void Watch::show(std::string_view text)
{
    const std::string key = keyOf(text);
    if (key.empty()) return;
    ShownText& shown = asked_.texts[key];
    shown.isNeeded = true;
    shown.views.push_back("a message on " + view_);
}

std::optional<std::string> Watch::relative(std::string_view path) const
{
    if (path.substr(0, folder_.size()) != folder_) return std::nullopt;
    std::string name{path.substr(folder_.size())};
    std::replace(name.begin(), name.end(), '\\', '/');
    return name;
}

std::optional<std::string> Watch::text(
    std::string_view file, std::string_view section, std::string_view entry)
{
    last_ = Access::Entry;
    const std::optional<std::string> name = relative(file);
    if (!name) return std::nullopt;
    const bool isSupposed = supposed_ != nullptr && basic::upperCase(*name) == basic::upperCase(programFile);
    if (!isSupposed)
        asked_.entries.try_emplace({*name, iniName(section), iniName(entry)},
            AskedEntry{'[' + std::string{section} + "] " + std::string{entry}, view_});
    if (allOptions_ && isSwitch(entry)) return "TRUE";
    if (project_.machineType && iniName(entry) == "SERVOWITHMACHINETYPE") return project_.machineType;
    if (isSupposed) {
        const std::optional<std::string> value = supposed_->entry(entry);
        if (isServoEntry(entry)) listed_ = value ? servoNumber(*value) : std::nullopt;
        return value;
    }
    // A file that is no INI file has no entries; looking for them would take minutes.
    const auto ini = project_.inis.find(basic::upperCase(*name));
    if (ini != project_.inis.end() && !ini->second.content) return std::nullopt;
    std::optional<std::string> value = inner_.profile.text(file, section, entry);
    if (isServoEntry(entry)) listed_ = value ? servoNumber(*value) : std::nullopt;
    return value;
}

bool Watch::exists(std::string_view path)
{
    if (const std::optional<std::string> name = relative(path))
        asked_.soughtFiles[*name].add(resolution_, view_);
    return inner_.files.exists(path);
}

basic::ObjectRef Watch::load(std::string_view path)
{
    last_ = Access::Picture;
    lastFile_ = path;
    if (const std::optional<std::string> name = relative(path)) {
        lastFile_ = *name;
        asked_.pictures[*name].add(resolution_, view_);
    }
    basic::ObjectRef picture = inner_.pictures.load(path);
    last_ = Access::Other;
    return picture;
}

void Watch::requireFooterPicture(std::string_view name)
{
    std::string slashed{name};
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    Places& places = asked_.pictures[slashed];
    places.add(resolution_, view_);
    places.isFooter = true;
}

void Watch::requireSize(std::string_view path, int width, int height)
{
    const std::optional<std::string> name = relative(path);
    if (!name) return;
    Places& places = asked_.pictures[*name];
    places.width = width;
    places.height = height;
}

} // namespace servopanel::check
