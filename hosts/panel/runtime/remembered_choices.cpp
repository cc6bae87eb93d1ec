#include "panel/runtime/remembered_choices.h"

#include "panel/look/qt_text.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <system_error>
#include <utility>

namespace servopanel::panel {

namespace {

constexpr const char* project = "project";
constexpr const char* language = "language";
constexpr const char* machine = "machine";
constexpr const char* servo = "servo";

} // namespace

RememberedChoices::RememberedChoices(std::filesystem::path folder, const std::filesystem::path& projectFolder)
    : file_{std::move(folder) / "choices.json"}
{
    std::error_code ignored;
    const std::filesystem::path whole = std::filesystem::weakly_canonical(projectFolder, ignored);
    project_ = (whole.empty() ? projectFolder : whole).string();
}

std::optional<Choices> RememberedChoices::load()
{
    problem_.clear();
    onDisk_.reset();
    QFile file{toQt(file_.string())};
    if (!file.exists()) return {};
    if (!file.open(QIODevice::ReadOnly)) {
        problem_ = "'" + file_.string() + "': " + file.errorString().toStdString();
        return {};
    }
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll());
    if (!document.isObject()) {
        problem_ = "'" + file_.string() + "': what the panel remembered cannot be read";
        return {};
    }
    const QJsonObject object = document.object();
    if (object.value(project).toString().toStdString() != project_) return {};
    Choices choices;
    const auto number = [&](const char* name) {
        return static_cast<std::int16_t>(object.value(name).toInt());
    };
    if (object.contains(language)) choices.language = number(language);
    choices.machine = number(machine);
    choices.servo = number(servo);
    onDisk_ = choices;
    return choices;
}

void RememberedChoices::save(const Choices& choices)
{
    problem_.clear();
    if (onDisk_ == choices) return;
    QJsonObject object{{project, toQt(project_)}, {machine, choices.machine}, {servo, choices.servo}};
    if (choices.language) object.insert(language, *choices.language);
    std::error_code ignored; // writing tells the same
    std::filesystem::create_directories(file_.parent_path(), ignored);
    QSaveFile file{toQt(file_.string())};
    const QByteArray text = QJsonDocument{object}.toJson();
    // What was written still waits in a buffer: without flush a full disk would cost the good file.
    if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush() && file.commit())
        onDisk_ = choices;
    else
        problem_ = "'" + file_.string() + "': " + file.errorString().toStdString();
}

} // namespace servopanel::panel
