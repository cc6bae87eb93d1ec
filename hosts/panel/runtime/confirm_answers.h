#pragma once

#include "panel/form/control_host.h"
#include "panel/runtime/confirm_answer.h"
#include "panel/runtime/overwritten.h"
#include "panel/widgets/answer_strip.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace servopanel::panel {

// Answers every press of the confirm key: in the operator's words on the strip, with variables and the words of the
// errors in the list of reports. An answer goes with the next footer key, because another servo may be shown then.
class ConfirmAnswers {
public:
    // note: a line for the list of reports.
    ConfirmAnswers(WatchedVariables& variables, AnswerStrip& strip, PanelWords words,
        std::function<void(const QString& line)> note);

    // A footer key of the page is about to act.
    void keyBegins(ControlHost& page);
    // It has acted. hasLink: whether there was a way to the machine at all.
    void keyEnds(ControlHost& page, bool hasLink);
    // Whether that was a confirm.
    bool hasAnswer() const { return answer_.has_value(); }
    // What the confirm was to write and what is to wait on: it may come right later, or the machine was not told to take
    // it over.
    // Of other refusals the page shows what the machine holds instead.
    std::vector<ValueSource> waiting() const;
    // Another answer stands on the strip.
    void forget() { answer_.reset(); }
    // Of writes without an answer whose variable could not be read at that time: once it can be, says whether the machine
    // has the new value. now: milliseconds of the connection's clock. To be called again and again, not within a key.
    // page: the servo's that is shown, nullptr for none.
    void findOut(ControlHost* page, std::int64_t now);
    // Words and captions are others now.
    void languageChanged(ControlHost* page);

private:
    // A field whose value waits to be written.
    struct Field {
        ValueSource source;
        std::string name;
        std::int16_t index = 0;
        std::optional<double> entered; // what it showed when the key was pressed
    };

    // A write of which nobody knows how it ended.
    struct Unclear {
        std::string variable;
        basic::Variant wanted;
        std::vector<ValueSource> sources; // what was changed of it
        QString captions; // of these
        std::optional<std::int64_t> since; // first seen by findOut
    };

    void findNotTaken();
    void findChanged();
    void keepUnclear(ControlHost& page);
    // Nothing while the machine's value cannot be read.
    std::optional<RefusalReason> endOf(const Unclear& write) const;
    static QString line(const QString& captions, const QString& reason, const std::string& variable,
        const std::string& description);

    // Refusals with one and the same reason, as the strip names them.
    struct Group {
        RefusalReason reason = RefusalReason::Other;
        QStringList captions;
        bool isOfOneOfThem = false; // and nobody knows of which
        QString text(const PanelWords& words) const;
    };
    // Those that the heading speaks of come first, and those of which nobody knows whose they are last.
    std::vector<Group> groups(ControlHost& page) const;
    // Whether all is written, but the machine does not know of it.
    bool isUntoldAlone() const;
    // The captions of what a refusal concerns; that the machine was not told concerns no field.
    QStringList concerned(ControlHost& page, const Refusal& refusal) const;
    // Caption, and what the machine held and holds now.
    QString told(ControlHost& page, const Overwritten& value) const;
    void show(ControlHost& page);
    bool isSure() const;
    QString written() const;
    // Head and reason, as they stand on the strip.
    QString head() const;
    QString reason(ControlHost& page) const;
    // The first of them, and how many there are further.
    QString overwritten(ControlHost& page) const;
    void report(ControlHost& page);

    WatchedVariables& variables_;
    AnswerStrip& strip_;
    PanelWords words_;
    std::function<void(const QString&)> note_;
    std::vector<Field> changed_;
    std::optional<ConfirmAnswer> answer_;
    bool isUntold_ = false; // what the machine holds of a confirm that still waits
    bool wasUntold_ = false; // likewise before the present key
    std::vector<Overwritten> overwritten_;
    std::vector<Unclear> unclear_;
};

} // namespace servopanel::panel
