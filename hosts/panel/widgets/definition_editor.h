#pragma once

#include "panel/look/panel_text.h"
#include "panel/widgets/key_pad.h"
#include "panel/widgets/sheet.h"

#include <cstdint>

namespace servopanel::panel {

struct Definition {
    double least = 0;
    double most = 0;
    std::int16_t level = 0;
    friend bool operator==(const Definition&, const Definition&) = default;
};

// Editor of a parameter's limits and access level. OK is refused while a number is missing, the limits cross or the
// level is none, and the editor says so until the next key.
class DefinitionEditor : public Sheet {
public:
    DefinitionEditor(QWidget* parent, PanelWords words);

    void setHandlers(std::function<void(const Definition&)> accepted, std::function<void()> cancelled);
    // Whose definition it is: caption for the title, unit for the limits. Both may be empty.
    void setField(const QString& caption, const QString& unit);
    void start(const Definition& definition);
    // Shows its words anew, after the language has changed.
    void languageChanged();

    enum Row { Least, Most, Level };
    void choose(Row row);
    void accept();
    void cancel();

    KeyPad& pad() { return *pad_; }
    TouchKey& okKey() { return *ok_; }
    TouchKey& cancelKey() { return *cancel_; }
    TouchKey& rowKey(Row row) { return *rowKeys_[static_cast<std::size_t>(row)]; }
    QString remark() const { return remark_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    static constexpr std::size_t rowCount = 3;

    void changed();
    void layOut();
    QString reasonAgainst() const;
    QRect remarkPlace() const;
    QString valueOf(Row row) const;

    PanelWords words_;
    std::array<NumberEntry, rowCount> entries_;
    std::array<TouchKey*, rowCount> rowKeys_{};
    KeyPad* pad_;
    TouchKey* cancel_;
    TouchKey* ok_;
    Row chosen_ = Least;
    QString caption_;
    QString unit_;
    QString remark_;
    std::function<void(const Definition&)> accepted_;
    std::function<void()> cancelled_;
};

} // namespace servopanel::panel
