#include "recording/trace/recorded_services.h"

#include "basic/conversions.h"
#include "recording/trace/recorded_child.h"
#include "recording/trace/value_text.h"

#include <string>
#include <utility>

namespace servopanel::recording {

namespace {

// The report ends in the name of the procedure, behind the last of the marks between its parts.
std::string_view procedureOf(std::string_view report)
{
    constexpr std::string_view mark = "###";
    const std::size_t last = report.rfind(mark);
    return last == std::string_view::npos ? report : report.substr(last + mark.size());
}

} // namespace

basic::Variant RecordedVariables::ReadValue(std::string_view name)
{
    const std::string line = "read " + std::string{name};
    TraceSink::Slot slot = sink_.open(line + " failed");
    basic::Variant value = inner_->ReadValue(name);
    slot.complete(line + " = " + valueText(value, paths_));
    return value;
}

void RecordedVariables::WriteValue(std::string_view name, const basic::Variant& value)
{
    const std::string line = "write " + std::string{name};
    TraceSink::Slot slot = sink_.open(line + " failed");
    inner_->WriteValue(name, value);
    slot.complete(line + " = " + valueText(value, paths_));
}

std::string RecordedPathHelper::path(std::string_view name)
{
    std::string full = inner_->path(name);
    paths_.learn(name, full);
    return full;
}

void RecordedPathHelper::openScreen(std::int16_t number)
{
    sink_.line("screen " + basic::decimal(std::int32_t{number}));
    inner_->openScreen(number);
}

void RecordedErrorDisplay::ErrMessage(
    std::int32_t number, std::string_view source, std::string_view description, std::string_view text)
{
    sink_.line("error " + basic::decimal(number) + " " + inQuotes(procedureOf(text)) + " "
        + inQuotes(paths_.message(description)));
    inner_->ErrMessage(number, source, description, text);
}

void RecordedErrorDisplay::CloseMe()
{
    sink_.line("closeme");
    inner_->CloseMe();
}

void RecordedMessages::show(std::string_view text)
{
    sink_.line("message " + inQuotes(paths_.message(text)));
    inner_.show(text);
}

std::optional<std::string> RecordedProfile::text(
    std::string_view file, std::string_view section, std::string_view entry)
{
    const std::string line =
        "profile " + paths_.name(file) + " [" + std::string{section} + "] " + std::string{entry} + " = ";
    TraceSink::Slot slot = sink_.open(line + inQuotes({}));
    std::optional<std::string> found = inner_.text(file, section, entry);
    if (found) slot.complete(line + inQuotes(*found));
    return found;
}

platform::TextFile RecordedFiles::openText(std::string_view path)
{
    const std::string line = "ini open " + paths_.name(path);
    TraceSink::Slot slot = sink_.open(line + " failed");
    platform::TextFile file = inner_.openText(path);
    slot.complete(line);
    return file;
}

void RecordedFiles::closeText()
{
    sink_.line("ini close");
    inner_.closeText();
}

void RecordedFiles::writeText(std::string_view path, std::string_view text)
{
    sink_.line("ini write " + paths_.name(path));
    inner_.writeText(path, text);
}

bool RecordedFiles::exists(std::string_view path)
{
    const std::string line = "exists " + paths_.name(path);
    TraceSink::Slot slot = sink_.open(line + " failed");
    const bool found = inner_.exists(path);
    slot.complete(line + (found ? " yes" : " no"));
    return found;
}

void RecordedFiles::createFolder(std::string_view path)
{
    sink_.line("mkdir " + paths_.name(path));
    inner_.createFolder(path);
}

basic::ObjectRef RecordedPictures::load(std::string_view path)
{
    const std::string line = "picture " + paths_.name(path);
    TraceSink::Slot slot = sink_.open(line + " missing");
    basic::ObjectRef picture = inner_.load(path);
    slot.complete(line);
    return picture;
}

void RecordedPictures::save(platform::Control& box, std::string_view path)
{
    const auto* traced = dynamic_cast<const TracedObject*>(&box);
    sink_.line(
        "save " + (traced ? traced->traceName() : std::string{box.className()}) + " " + paths_.name(path));
    inner_.save(unwrapped(box), path);
}

void RecordedSurroundings::letEventsRun()
{
    sink_.line("pump");
    inner_.letEventsRun();
}

} // namespace servopanel::recording
