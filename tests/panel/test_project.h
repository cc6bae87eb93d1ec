#pragma once

#include "panel/runtime/panel.h"
#include "panel/tour/operator.h"
#include "panel/widgets/message_sheet.h"

#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <memory>
#include <string>
#include <string_view>

namespace servopanel::testing {

// An HMI project on the disk that holds what the set-up commands of a scenario describe, so that a panel and a replay
// can start from the same.
class TestProject {
public:
    explicit TestProject(const std::string& scenario);

    std::filesystem::path folder() const { return folder_.path().toStdString(); }
    std::filesystem::path file(const std::string& name) const { return folder() / name; }
    // Writes a file of the project anew.
    void write(const std::string& name, const std::string& content) const;
    // One text of such a file by another.
    void replaceInFile(const std::string& name, const std::string& old, const std::string& text) const;
    // Texts that the scenario does not have become empty ones, as a replay reads them; a panel shows the key of a missing
    // text.
    void addEmptyTexts();
    void remove(const std::string& name) const { std::filesystem::remove(file(name)); }

    // A panel on this project: nothing moves by itself, scaled pictures stay within the test, and the database holds
    // the rows of the scenario.
    panel::PanelSettings settings() const;

private:
    void variable(std::string_view rest);
    void text(std::string_view rest);
    void picture(std::string_view rest);
    void writeProjectFile() const;

    QTemporaryDir folder_;
    std::string scenario_;
    std::string variables_;
    std::string texts_;
};

// The message that is open, nullptr when there is none.
panel::MessageSheet* openMessage(panel::Panel& panel);

// Reads every message that opens, for panels that have something to say.
class MessageReader {
public:
    explicit MessageReader(panel::Panel& panel);
    const std::vector<std::string>& texts() const { return texts_; }

private:
    QTimer timer_;
    std::vector<std::string> texts_;
};

} // namespace servopanel::testing
