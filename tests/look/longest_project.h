#pragma once

#include <QTemporaryDir>

#include <filesystem>
#include <string>

namespace servopanel::look {

// A copy of an HMI project in which one of its languages has, under every key, the longest text of all languages.
class LongestProject {
public:
    enum class Padding { None, ThirtyPercent }; // 30 % more: more than any translator will need

    // Replaces the texts of the language with this code.
    LongestProject(const std::filesystem::path& project, const std::string& code, Padding padding);
    std::filesystem::path folder() const { return folder_.path().toStdString(); }

private:
    QTemporaryDir folder_;
};

// "Vorschub;mm/s" becomes longer before its unit, which stays.
std::string padded(const std::string& text);

} // namespace servopanel::look
