#include "one_failure/failing_seam.h"

#include "basic/conversions.h"
#include "recording/trace/value_text.h"

#include <optional>
#include <string_view>
#include <utility>

namespace servopanel::testing {

void Crossings::listen()
{
    mode_ = Mode::Listening;
    names_.clear();
}

void Crossings::failAt(std::size_t crossing)
{
    mode_ = Mode::Failing;
    count_ = 0;
    failing_ = crossing;
}

namespace {

using platform::Args;
using platform::Member;
using recording::memberText;
using recording::objectText;

// Files of the project go by their project-relative names.
std::string fileText(std::string_view path)
{
    constexpr std::string_view project = "C:\\Projekt\\";
    if (path.starts_with(project)) path.remove_prefix(project.size());
    return std::string{path};
}

// "(5, true)". Names of pictures are left out.
std::string argumentText(Args args)
{
    std::string text;
    for (const basic::Variant& value : args)
        if (!value.holds<std::string>()) text += (text.empty() ? "" : ", ") + basic::toText(value);
    return "(" + text + ")";
}

// " = true": what is switched on and off belongs to different statements.
std::string switchText(const basic::Variant& value)
{
    const auto* on = value.get<bool>();
    if (on == nullptr) return {};
    return *on ? " = true" : " = false";
}

class FailingControl : public platform::Control {
public:
    FailingControl(platform::ControlRef inner, std::string name, Crossings& crossings)
        : inner_{std::move(inner)}
        , name_{std::move(name)}
        , crossings_{crossings}
    {
    }

    using platform::Control::get;
    using platform::Control::put;
    basic::Variant get(const Member& member, Args args) override
    {
        crossings_.cross([&] { return "get " + memberName(member); });
        return inner_->get(member, args);
    }
    void put(const Member& member, Args args, const basic::Variant& value) override
    {
        crossings_.cross([&] { return "put " + memberName(member) + switchText(value); });
        inner_->put(member, args, value);
    }
    void putRef(const Member& member, Args args, const basic::Variant& object) override;
    basic::Variant call(const Member& member, Args args) override
    {
        crossings_.cross([&] {
            const auto* key = args.size() == 1 ? args[0].get<std::string>() : nullptr;
            return key ? "text " + *key : "call " + memberName(member) + argumentText(args);
        });
        return inner_->call(member, args);
    }
    std::string_view className() const override
    {
        crossings_.cross([&] { return "class " + name_; });
        return inner_->className();
    }

    const platform::ControlRef& inner() const { return inner_; }
    const std::string& name() const { return name_; }

private:
    std::string memberName(const Member& member) const { return name_ + "." + memberText(member); }

    platform::ControlRef inner_;
    std::string name_;
    Crossings& crossings_;
};

void FailingControl::putRef(const Member& member, Args args, const basic::Variant& object)
{
    crossings_.cross([&] { return "put " + memberName(member); });
    const auto* reference = object.get<basic::ObjectRef>();
    const auto target = reference ? std::dynamic_pointer_cast<FailingControl>(*reference) : nullptr;
    inner_->putRef(member, args, target ? basic::Variant{target->inner()} : object);
}

class FailingForm : public platform::Form {
public:
    FailingForm(platform::Form& inner, std::string_view owner, Crossings& crossings)
        : inner_{inner}
        , owner_{owner}
        , crossings_{crossings}
    {
    }
    platform::ControlRef child(platform::ChildId id) override
    {
        crossings_.cross([&] { return "child " + objectText(owner_, id); });
        return std::make_shared<FailingControl>(inner_.child(id), objectText(owner_, id), crossings_);
    }
    void load(platform::ChildId id) override
    {
        crossings_.cross([&] { return "load " + objectText(owner_, id); });
        inner_.load(id);
    }
    float textWidth(platform::ChildId id, std::string_view text) override
    {
        crossings_.cross([&] { return "width " + objectText(owner_, id); });
        return inner_.textWidth(id, text);
    }

private:
    platform::Form& inner_;
    std::string owner_;
    Crossings& crossings_;
};

class FailingSurface : public platform::Surface {
public:
    FailingSurface(platform::Surface& inner, std::string_view owner, Crossings& crossings)
        : inner_{inner}
        , owner_{owner}
        , crossings_{crossings}
    {
    }
    basic::Variant get(const Member& member) override
    {
        crossings_.cross([&] { return "get " + owner_ + "." + memberText(member); });
        return inner_.get(member);
    }
    void put(const Member& member, const basic::Variant& value) override
    {
        crossings_.cross([&] { return "put " + owner_ + "." + memberText(member); });
        inner_.put(member, value);
    }
    void line(platform::ChildId target, float x1, float y1, float x2, float y2, std::int32_t colour,
        std::int16_t flags) override
    {
        crossings_.cross(
            [&] { return "line " + objectText(owner_, target) + " " + basic::decimal(std::int32_t{flags}); });
        inner_.line(target, x1, y1, x2, y2, colour, flags);
    }
    void clear(platform::ChildId target) override
    {
        crossings_.cross([&] { return "call " + objectText(owner_, target) + ".Cls()"; });
        inner_.clear(target);
    }
    void refresh(platform::ChildId target) override
    {
        crossings_.cross([&] { return "call " + objectText(owner_, target) + ".Refresh()"; });
        inner_.refresh(target);
    }
    void bitBlt(platform::ChildId from, platform::ChildId to, std::int32_t x, std::int32_t y,
        std::int32_t width, std::int32_t height) override
    {
        crossings_.cross([&] { return "bitblt " + objectText(owner_, from) + " " + objectText(owner_, to); });
        inner_.bitBlt(from, to, x, y, width, height);
    }
    void stretchBlt(platform::ChildId from, platform::ChildId to, std::int32_t fromWidth,
        std::int32_t fromHeight, std::int32_t width, std::int32_t height) override
    {
        crossings_.cross(
            [&] { return "stretch " + objectText(owner_, from) + " " + objectText(owner_, to); });
        inner_.stretchBlt(from, to, fromWidth, fromHeight, width, height);
    }

private:
    platform::Surface& inner_;
    std::string owner_;
    Crossings& crossings_;
};

class FailingOwner : public platform::Owner {
public:
    FailingOwner(platform::Owner& inner, std::string_view owner, Crossings& crossings)
        : inner_{inner}
        , owner_{owner}
        , crossings_{crossings}
    {
    }
    void raise(std::string_view event, Args args) override
    {
        crossings_.cross([&] { return "raise " + owner_ + "." + std::string{event}; });
        inner_.raise(event, args);
    }

private:
    platform::Owner& inner_;
    std::string owner_;
    Crossings& crossings_;
};

class FailingVariables : public platform::ProcessVarAccess {
public:
    FailingVariables(std::shared_ptr<platform::ProcessVarAccess> inner, Crossings& crossings)
        : inner_{std::move(inner)}
        , crossings_{crossings}
    {
    }
    basic::Variant ReadValue(std::string_view name) override
    {
        crossings_.cross([&] { return "read " + std::string{name}; });
        return inner_->ReadValue(name);
    }
    void WriteValue(std::string_view name, const basic::Variant& value) override
    {
        crossings_.cross([&] { return "write " + std::string{name}; });
        inner_->WriteValue(name, value);
    }

private:
    std::shared_ptr<platform::ProcessVarAccess> inner_;
    Crossings& crossings_;
};

class FailingPaths : public platform::PathHelper {
public:
    FailingPaths(std::shared_ptr<platform::PathHelper> inner, Crossings& crossings)
        : inner_{std::move(inner)}
        , crossings_{crossings}
    {
    }
    std::string path(std::string_view name) override
    {
        crossings_.cross([&] { return "path " + std::string{name}; });
        return inner_->path(name);
    }
    void openScreen(std::int16_t number) override
    {
        crossings_.cross([&] { return "screen " + basic::decimal(std::int32_t{number}); });
        inner_->openScreen(number);
    }
    std::int16_t inputPermission() override
    {
        crossings_.cross([] { return std::string{"input permission"}; });
        return inner_->inputPermission();
    }

private:
    std::shared_ptr<platform::PathHelper> inner_;
    Crossings& crossings_;
};

class FailingDisplay : public platform::ErrorDisplay {
public:
    FailingDisplay(std::shared_ptr<platform::ErrorDisplay> inner, Crossings& crossings)
        : inner_{std::move(inner)}
        , crossings_{crossings}
    {
    }
    void ErrMessage(std::int32_t number, std::string_view source, std::string_view description,
        std::string_view text) override
    {
        crossings_.cross([&] { return "error " + basic::decimal(number); });
        inner_->ErrMessage(number, source, description, text);
    }
    void CloseMe() override
    {
        crossings_.cross([] { return std::string{"closeme"}; });
        inner_->CloseMe();
    }

private:
    std::shared_ptr<platform::ErrorDisplay> inner_;
    Crossings& crossings_;
};

class FailingRows : public platform::RecordSet {
public:
    FailingRows(std::unique_ptr<platform::RecordSet> inner, Crossings& crossings)
        : inner_{std::move(inner)}
        , crossings_{crossings}
    {
    }
    bool atEnd() override { return crossing("end"), inner_->atEnd(); }
    void moveNext() override { crossing("next"), inner_->moveNext(); }
    basic::Variant field(std::string_view column) override
    {
        crossing("field " + std::string{column});
        return inner_->field(column);
    }
    basic::Variant bookmark() override { return crossing("row"), inner_->bookmark(); }
    void moveTo(const basic::Variant& bookmark) override
    {
        try {
            crossing("move");
        } catch (const basic::Error&) {
            // As when the row is gone: there is no current row any more.
            while (!inner_->atEnd())
                inner_->moveNext();
            throw;
        }
        inner_->moveTo(bookmark);
    }
    void edit() override { crossing("edit"), inner_->edit(); }
    void setField(std::string_view column, const basic::Variant& value) override
    {
        crossing("set " + std::string{column});
        inner_->setField(column, value);
    }
    void update() override { crossing("update"), inner_->update(); }

private:
    void crossing(const std::string& what)
    {
        crossings_.cross([&] { return "db " + what; });
    }

    std::unique_ptr<platform::RecordSet> inner_;
    Crossings& crossings_;
};

class FailingDatabase : public platform::Database {
public:
    FailingDatabase(std::unique_ptr<platform::Database> inner, Crossings& crossings)
        : inner_{std::move(inner)}
        , crossings_{crossings}
    {
    }
    std::unique_ptr<platform::RecordSet> openRecordSet(std::string_view query) override
    {
        crossings_.cross([] { return std::string{"db rows"}; });
        return std::make_unique<FailingRows>(inner_->openRecordSet(query), crossings_);
    }
    void close() override
    {
        crossings_.cross([] { return std::string{"db close"}; });
        inner_->close();
    }

private:
    std::unique_ptr<platform::Database> inner_;
    Crossings& crossings_;
};

class FailingEngine : public platform::DBEngine {
public:
    FailingEngine(std::shared_ptr<platform::DBEngine> inner, Crossings& crossings)
        : inner_{std::move(inner)}
        , crossings_{crossings}
    {
    }
    std::unique_ptr<platform::Database> open(std::string_view path) override
    {
        crossings_.cross([&] { return "db open " + fileText(path); });
        return std::make_unique<FailingDatabase>(inner_->open(path), crossings_);
    }

private:
    std::shared_ptr<platform::DBEngine> inner_;
    Crossings& crossings_;
};

// The rest of the platform has no state of its own and is one object.
class FailingPlatform : public platform::LateObjects,
                        public platform::Messages,
                        public platform::Profile,
                        public platform::Files,
                        public platform::Surroundings,
                        public platform::Pictures {
public:
    FailingPlatform(const platform::LibraryPlatform& inner, std::shared_ptr<Crossings> crossings)
        : inner_{inner}
        , owned_{std::move(crossings)}
        , crossings_{*owned_}
    {
    }
    platform::LibraryPlatform platform() { return {*this, *this, *this, *this, *this, *this}; }

    std::shared_ptr<platform::ProcessVarAccess> createProcessVarAccess() override
    {
        crossing("make ProcessVarAccess");
        return std::make_shared<FailingVariables>(inner_.objects.createProcessVarAccess(), crossings_);
    }
    std::shared_ptr<platform::PathHelper> createPathHelper() override
    {
        crossing("make PathHelper");
        return std::make_shared<FailingPaths>(inner_.objects.createPathHelper(), crossings_);
    }
    std::shared_ptr<platform::ErrorDisplay> createErrorDisplay() override
    {
        crossing("make ErrorDisplay");
        return std::make_shared<FailingDisplay>(inner_.objects.createErrorDisplay(), crossings_);
    }
    std::shared_ptr<platform::DBEngine> createDBEngine() override
    {
        crossing("make DBEngine");
        return std::make_shared<FailingEngine>(inner_.objects.createDBEngine(), crossings_);
    }

    void show(std::string_view text) override
    {
        crossing("message");
        inner_.messages.show(text);
    }
    std::optional<std::string> text(
        std::string_view file, std::string_view section, std::string_view entry) override
    {
        crossings_.cross([&] {
            return "profile " + fileText(file) + " [" + std::string{section} + "] " + std::string{entry};
        });
        return inner_.profile.text(file, section, entry);
    }

    platform::TextFile openText(std::string_view path) override
    {
        crossing("ini open ", path);
        return inner_.files.openText(path);
    }
    void closeText() override
    {
        crossing("ini close");
        inner_.files.closeText();
    }
    void writeText(std::string_view path, std::string_view text) override
    {
        crossing("ini write ", path);
        inner_.files.writeText(path, text);
    }
    bool exists(std::string_view path) override
    {
        crossing("exists ", path);
        return inner_.files.exists(path);
    }
    void createFolder(std::string_view path) override
    {
        crossing("mkdir ", path);
        inner_.files.createFolder(path);
    }

    platform::EnvironmentValue environment(std::string_view name) override
    {
        crossing("environment ", name);
        return inner_.surroundings.environment(name);
    }
    std::string libraryName() override
    {
        crossing("library name");
        return inner_.surroundings.libraryName();
    }
    float twipsPerPixelX() override
    {
        crossing("twips X");
        return inner_.surroundings.twipsPerPixelX();
    }
    float twipsPerPixelY() override
    {
        crossing("twips Y");
        return inner_.surroundings.twipsPerPixelY();
    }
    void letEventsRun() override
    {
        crossing("pump");
        inner_.surroundings.letEventsRun();
    }

    basic::ObjectRef load(std::string_view path) override
    {
        crossing("picture ", path);
        return inner_.pictures.load(path);
    }
    void save(platform::Control& box, std::string_view path) override
    {
        // The recorder behind knows the boxes that it made itself.
        auto& failing = dynamic_cast<FailingControl&>(box);
        crossing("save " + failing.name() + " ", path);
        inner_.pictures.save(*failing.inner(), path);
    }

private:
    void crossing(std::string_view what, std::string_view path = {})
    {
        crossings_.cross([&] { return std::string{what} + fileText(path); });
    }

    platform::LibraryPlatform inner_;
    std::shared_ptr<Crossings> owned_;
    Crossings& crossings_;
};

// A control of the library with the platform that it was given.
class BehindSeam : public platform::HostedControl {
public:
    BehindSeam(const recording::ControlMaker& library, std::string_view className,
        const platform::ControlPlatform& inner, Crossings& crossings)
        : form_{inner.form, className, crossings}
        , surface_{inner.surface, className, crossings}
        , owner_{inner.owner, className, crossings}
        , control_{library(className, {form_, surface_, owner_})}
    {
    }
    void initialize() override { control_->initialize(); }
    void show() override { control_->show(); }
    void terminate() override { control_->terminate(); }
    basic::Variant get(const Member& member) override { return control_->get(member); }
    void put(const Member& member, const basic::Variant& value) override { control_->put(member, value); }
    bool deliver(platform::ChildId child, std::string_view event, Args args) override
    {
        return control_->deliver(child, event, args);
    }
    platform::FormData form() const override { return control_->form(); }

private:
    FailingForm form_;
    FailingSurface surface_;
    FailingOwner owner_;
    std::unique_ptr<platform::HostedControl> control_;
};

} // namespace

recording::LibraryMaker libraryBehind(std::shared_ptr<Crossings> crossings)
{
    return [crossings](const platform::LibraryPlatform& inner) -> recording::ControlMaker {
        const auto seam = std::make_shared<FailingPlatform>(inner, crossings);
        const recording::ControlMaker library = recording::makeLibrary(seam->platform());
        return [seam, library, crossings](
                   std::string_view className, const platform::ControlPlatform& platform) {
            return std::make_unique<BehindSeam>(library, className, platform, *crossings);
        };
    };
}

} // namespace servopanel::testing
