#include "panel/runtime/panel_services.h"

#include "basic/conversions.h"
#include "basic/error.h"
#include "panel/form/picture_child.h"
#include "panel/look/qt_text.h"
#include "panel/pictures/picture_file.h"
#include "panel/widgets/message_sheet.h"
#include "portable/file_error.h"

#include <QCoreApplication>
#include <QPointer>
#include <QScopeGuard>

namespace servopanel::panel {

namespace {

constexpr std::int32_t cannotCreateObject = 429;

// The library opens an empty name where it has found no file; the report shall say which one is missing.
class NamingEngine : public platform::DBEngine {
public:
    NamingEngine(std::shared_ptr<platform::DBEngine> inner, std::shared_ptr<PanelPathHelper> paths)
        : inner_{std::move(inner)}
        , paths_{std::move(paths)}
    {
    }
    std::unique_ptr<platform::Database> open(std::string_view path) override
    {
        if (path.empty())
            portable::raiseFileError(portable::FileError::FileNotFound, paths_->asked(), "no such file");
        return inner_->open(path);
    }

private:
    std::shared_ptr<platform::DBEngine> inner_;
    std::shared_ptr<PanelPathHelper> paths_;
};

} // namespace

void PanelErrorDisplay::ErrMessage(
    std::int32_t number, std::string_view source, std::string_view description, std::string_view text)
{
    // The composed report ends in the procedure's name, behind the last mark.
    const std::size_t mark = text.rfind("###");
    const std::string_view procedure = mark == std::string_view::npos ? text : text.substr(mark + 3);
    list_.add(ErrorEntry::Origin::Library,
        toQt(description) + QStringLiteral(" (")
            + (source.empty() ? QString{} : toQt(source) + QStringLiteral(", "))
            + QString::fromStdString(basic::decimal(number)) + u')',
        toQt(procedure));
}

void PanelErrorDisplay::CloseMe() { list_.forget(ErrorEntry::Origin::Library); }

void PanelMessages::show(std::string_view text)
{
    // A child of the stage, which may end before its reader is done.
    const QPointer<MessageSheet> sheet{
        new MessageSheet{&stage_, words_(PanelText::Message), toQt(text), words_(PanelText::Ok)}};
    gate_.close();
    // Also when something in the event loop throws: a panel that stays closed hears no touch any more.
    const auto ended = qScopeGuard([&] {
        delete sheet;
        gate_.open();
    });
    sheet->run();
}

basic::ObjectRef PanelPictures::load(std::string_view path)
{
    const std::string name{path};
    const std::optional<std::filesystem::path> file = mapping_.find(path);
    if (!file) portable::raiseFileError(portable::FileError::FileNotFound, name, "no such file");
    return std::make_shared<PanelPicture>(cache_.load(*file, name), name);
}

void PanelPictures::save(platform::Control& box, std::string_view path)
{
    auto* picture = dynamic_cast<PictureChild*>(&box);
    if (picture == nullptr) basic::raise(basic::ErrorNumber::TypeMismatch);
    saveBitmap(picture->canvas().canvas().image(), mapping_.resolve(path), std::string{path});
}

void PanelSurroundings::letEventsRun() { QCoreApplication::processEvents(); }

std::shared_ptr<platform::ErrorDisplay> PanelObjects::createErrorDisplay()
{
    return std::make_shared<PanelErrorDisplay>(parts_.errors);
}

std::shared_ptr<platform::DBEngine> PanelObjects::createDBEngine()
{
    if (parts_.makeDatabase) return std::make_shared<NamingEngine>(parts_.makeDatabase(), parts_.paths);
    throw basic::Error{cannotCreateObject, "Panel", "No database engine"};
}

} // namespace servopanel::panel
