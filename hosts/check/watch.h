#pragma once

#include "check/asked.h"
#include "check/finding.h"
#include "check/kept_definitions.h"
#include "check/project.h"
#include "check/supposed_program.h"
#include "machine/variable_store.h"
#include "platform/library_platform.h"
#include "recording/memory/memory_host.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::check {

// Stands between the library and a host without a screen, and notes what is asked for and what is not there. Process
// variables behave as in the panel: they keep their type and their length. It lives as long as the library.
class Watch : private platform::LateObjects,
              private platform::Messages,
              private platform::Profile,
              private platform::Files,
              private platform::Pictures {
public:
    // All live as long as the watch.
    Watch(recording::MemoryHost& host, const CheckedProject& project, KeptDefinitions& definitions,
        Asked& asked, Findings& findings);

    platform::LibraryPlatform platform();

    // What an operator sees from now on, for the findings: "the menu of machine M1" at a resolution.
    void setView(std::string view, int resolution);
    const std::string& view() const { return view_; }

    // From now on every option of Program.ini is switched on, so that what is asked for because of one is asked for.
    void switchAllOptionsOn() { allOptions_ = true; }

    // From now on the machine's servos are these, whatever Program.ini says of them; they live as long as the watch.
    void suppose(const SupposedProgram& program) { supposed_ = &program; }

    // Gives a variable another start value; one that the project does not have stays missing.
    void set(std::string_view name, const basic::Variant& value);
    // A variable that an input writes as soon as it is shown.
    void noteVariable(const std::string& name) { asked_.variableNames.insert(name); }
    // A variable that is written by its input alone. The place is that of the input.
    void requireVariable(const std::string& name);
    // A picture of a footer key, which the host loads for the library, by its project-relative name.
    void requireFooterPicture(std::string_view name);
    // The size in pixels of the place of a picture, by the full path of its file.
    void requireSize(std::string_view path, int width, int height);

    // Numbers of the servos that the library has found to be active, in their order.
    const std::vector<std::string>& servos() const { return servos_; }
    // The variable of a family that was read last, which is that of the shown servo; empty when none was.
    std::string variableOf(std::string_view family) const;
    // Whether a variable of the shown view failed, so that values on it are those of another servo.
    bool isTroubled() const { return troubled_.contains(view_); }

    // Language texts go through the library as marks, so that the key of each text that is shown is known.
    std::string markOf(std::string_view key);
    // The key behind a mark; "" for any other text.
    std::string keyOf(std::string_view text) const;

private:
    class Variables;
    class Paths;
    class Errors;
    class Engine;

    enum class Access { None, Variable, MissingVariable, Definitions, Picture, Entry, Other };

    std::shared_ptr<platform::ProcessVarAccess> createProcessVarAccess() override;
    std::shared_ptr<platform::PathHelper> createPathHelper() override;
    std::shared_ptr<platform::ErrorDisplay> createErrorDisplay() override;
    std::shared_ptr<platform::DBEngine> createDBEngine() override;
    void show(std::string_view text) override;
    std::optional<std::string> text(
        std::string_view file, std::string_view section, std::string_view entry) override;
    basic::ObjectRef load(std::string_view path) override;
    void save(platform::Control& box, std::string_view path) override { inner_.pictures.save(box, path); }
    bool exists(std::string_view path) override;
    platform::TextFile openText(std::string_view path) override { return inner_.files.openText(path); }
    void closeText() override { inner_.files.closeText(); }
    void writeText(std::string_view path, std::string_view text) override
    {
        inner_.files.writeText(path, text);
    }
    void createFolder(std::string_view path) override { inner_.files.createFolder(path); }

    basic::Variant read(std::string_view name);
    basic::Variant readFlag(const std::string& name);
    void noteUnshown(std::string_view flag);
    void write(std::string_view name, const basic::Variant& value);
    void noteError(std::int32_t number, std::string_view description, std::string_view procedure);
    void variableFinding(const std::string& name, const std::string& what);
    // The name below the project's folder, with slashes; nothing for a file from elsewhere.
    std::optional<std::string> relative(std::string_view path) const;

    recording::MemoryHost& host_;
    platform::LibraryPlatform inner_;
    const CheckedProject& project_;
    KeptDefinitions& definitions_;
    Asked& asked_;
    Findings& findings_;
    machine::VariableStore store_;
    std::string folder_; // as the library sees it, with the separator at its end
    std::vector<std::string> marked_;
    std::string view_;
    int resolution_ = 0;
    bool allOptions_ = false;
    const SupposedProgram* supposed_ = nullptr;
    Access last_ = Access::None;
    std::string lastVariable_;
    std::string lastFile_; // below the project's folder
    std::map<std::string_view, std::string> familyVariables_;
    std::optional<int> listed_; // the servo in the list that the library has come to
    basic::Variant lastFlag_; // by which a servo goes whose own cannot be read
    std::vector<std::string> servos_;
    std::set<std::string> troubled_; // views
};

} // namespace servopanel::check
