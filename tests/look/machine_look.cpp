#include "look/machine_look.h"

#include <QFile>
#include <QProcess>
#include <QString>

#include <fstream>
#include <iterator>

namespace servopanel::look {

namespace {

std::string contentOf(const std::filesystem::path& file)
{
    std::ifstream in{file, std::ios::binary};
    return {std::istreambuf_iterator<char>{in}, {}};
}

// "" where there is no such package or no such system of packages.
std::string packageVersion(const QString& package)
{
    QProcess query;
    query.start(
        QStringLiteral("dpkg-query"), {QStringLiteral("-W"), QStringLiteral("-f=${Version}"), package});
    if (!query.waitForFinished() || query.exitCode() != 0) return {};
    return query.readAllStandardOutput().trimmed().toStdString();
}

} // namespace

std::string lookOfThisMachine()
{
    std::string result = std::string{"Qt "} + qVersion() + '\n';
    for (const char* package : {"libfreetype6", "libharfbuzz0b", "fonts-dejavu-core", "fonts-wqy-microhei"})
        result += std::string{package} + ' ' + packageVersion(QString::fromLatin1(package)) + '\n';
    return result;
}

std::string recordedLook(const std::filesystem::path& file) { return contentOf(file); }

void recordLook(const std::filesystem::path& file)
{
    std::filesystem::create_directories(file.parent_path());
    std::ofstream{file} << lookOfThisMachine();
}

bool isReferenceSystem()
{
    return contentOf("/etc/os-release").find("VERSION_CODENAME=bookworm") != std::string::npos;
}

} // namespace servopanel::look
