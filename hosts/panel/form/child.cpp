#include "panel/form/child.h"

#include "basic/conversions.h"
#include "basic/text.h"
#include "panel/look/fonts.h"
#include "panel/look/twips.h"
#include "platform/ids.h"

#include <QFontMetrics>

namespace servopanel::panel {

using basic::Variant;
using platform::Args;
using platform::Member;
namespace names = platform::names;
namespace Extender = platform::ids::Extender;

namespace {

constexpr std::int16_t normalWeight = 400;
constexpr std::int16_t boldWeight = 700;
constexpr std::int16_t leastBoldWeight = 550;

// Counts that a property is being set, also when setting it fails.
class Setting {
public:
    explicit Setting(int& depth)
        : depth_{depth}
    {
        ++depth_;
    }
    Setting(const Setting&) = delete;
    Setting& operator=(const Setting&) = delete;
    ~Setting() { --depth_; }

private:
    int& depth_;
};

} // namespace

bool isSame(const Member& asked, const Member& own)
{
    if (asked.isNamed() != own.isNamed()) return false;
    return asked.isNamed() ? basic::upperCase(asked.name) == basic::upperCase(own.name) : asked.id == own.id;
}

Child::Child(std::string className, QWidget& view, Services& services)
    : className_{std::move(className)}
    , view_{&view}
    , services_{services}
{
    view.hide();
    addContainerProperties();
    addFontProperties();
}

Child::~Child()
{
    if (!view_) return;
    // Until the event loop deletes it, nothing can be touched on it any more.
    view_->hide();
    view_->deleteLater();
}

void Child::addContainerProperties()
{
    const auto length = [this](const Member& byId, const Member& byName, float& twips) {
        for (const Member& member : {byId, byName})
            addProperty(
                member, [&twips] { return Variant{twips}; },
                [this, &twips](const Variant& value) {
                    twips = basic::toSingle(value);
                    place();
                });
    };
    length(Extender::Left, names::Left, left_);
    length(Extender::Top, names::Top, top_);
    length(Extender::Width, names::Width, width_);
    length(Extender::Height, names::Height, height_);
    for (const Member& member : {Extender::Visible, names::Visible})
        addProperty(
            member, [this] { return Variant{visible_}; },
            [this](const Variant& value) {
                visible_ = basic::toBoolean(value);
                if (view_) view_->setVisible(visible_);
                visibleChanged(visible_);
            },
            false);
    for (const Member& member : {Extender::Enabled, names::Enabled})
        addProperty(
            member, [this] { return Variant{enabled_}; },
            [this](const Variant& value) {
                enabled_ = basic::toBoolean(value);
                enabledChanged();
            });
}

void Child::addFontProperties()
{
    const auto add = [this](const Member& member, auto& field, auto convert) {
        addProperty(
            member, [&field] { return Variant{field}; },
            [this, &field, convert](const Variant& value) {
                field = convert(value);
                fontChanged();
            });
    };
    add(names::FontName, fontName_, basic::toText);
    add(names::FontCharset, charset_, basic::toInt16);
    add(names::FontWeight, weight_, basic::toInt16);
    add(names::FontSize, points_, basic::toSingle);
    // Bold and weight are two views of the same.
    addProperty(
        names::FontBold, [this] { return Variant{weight_ >= leastBoldWeight}; },
        [this](const Variant& value) {
            const bool wanted = basic::toBoolean(value);
            if (wanted != (weight_ >= leastBoldWeight)) weight_ = wanted ? boldWeight : normalWeight;
            fontChanged();
        },
        false);
}

void Child::setFontSize(float points)
{
    points_ = points;
    fontChanged();
}

QFont Child::font() const
{
    return libraryFont(QString::fromStdString(fontName_), points_, weight_ >= leastBoldWeight);
}

void Child::addProperty(const Member& member, Getter get, Setter set, bool copied)
{
    properties_.push_back({member, std::move(get), std::move(set), copied});
}

void Child::addReference(const Member& member, Setter set)
{
    references_.push_back({member, {}, std::move(set), false});
}

void Child::addMethod(const Member& member, std::size_t arguments, Method method)
{
    operations_.push_back({member, arguments, std::move(method)});
}

void Child::requireAlive() const
{
    if (ended_) basic::raise(basic::ErrorNumber::ObjectNotSet);
}

Child::Property& Child::property(const Member& member, Args args)
{
    requireAlive();
    for (Property& each : properties_)
        if (args.empty() && isSame(member, each.member)) return each;
    basic::raise(basic::ErrorNumber::NoSuchMember);
}

Variant Child::get(const Member& member, Args args) { return property(member, args).get(); }

void Child::put(const Member& member, Args args, const Variant& value)
{
    Property& target = property(member, args);
    const Setting setting{setting_};
    target.set(value);
}

void Child::putRef(const Member& member, Args args, const Variant& object)
{
    requireAlive();
    for (Property& each : references_) {
        if (!args.empty() || !isSame(member, each.member)) continue;
        const Setting setting{setting_};
        each.set(object);
        return;
    }
    basic::raise(basic::ErrorNumber::NoSuchMember);
}

Variant Child::call(const Member& member, Args args)
{
    requireAlive();
    for (Operation& each : operations_) {
        if (args.size() != each.arguments || !isSame(member, each.member)) continue;
        const Setting setting{setting_};
        return each.method(args);
    }
    basic::raise(basic::ErrorNumber::NoSuchMember);
}

void Child::end()
{
    ended_ = true;
    raise_ = nullptr;
}

void Child::copyFrom(Child& first)
{
    const Setting setting{setting_};
    for (std::size_t i = 0; i < properties_.size() && i < first.properties_.size(); ++i)
        if (properties_[i].copied) properties_[i].set(first.properties_[i].get());
}

bool Child::raise(std::string_view event, std::initializer_list<Variant> args)
{
    if (ended_ || setting_ > 0 || !raise_) return false;
    // The handler may end the form, and this child with it.
    const Raise deliver = raise_;
    const std::vector<Variant> values{args};
    return deliver(event, values);
}

void Child::setSize(float width, float height)
{
    width_ = width;
    height_ = height;
    place();
}

void Child::place()
{
    if (!view_) return;
    view_->setGeometry(toPixels(left_, top_, width_, height_));
    placed();
}

int Child::textWidth(const QString& text) const { return QFontMetrics{font()}.horizontalAdvance(text); }

} // namespace servopanel::panel
