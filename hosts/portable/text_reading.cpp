#include "portable/text_reading.h"

#include "portable/descriptor.h"
#include "portable/file_error.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace servopanel::portable {

namespace {

namespace fs = std::filesystem;

std::error_code lastError() { return {errno, std::generic_category()}; }

std::string tooLarge(std::uintmax_t largest)
{
    return "the file is larger than " + std::to_string(largest / 1'000'000) + " MB and is not read";
}

[[noreturn]] void raiseOpenError(const fs::path& file, std::string_view name, std::error_code code)
{
    std::error_code ignored;
    if (code == std::errc::no_such_file_or_directory && fs::is_directory(file.parent_path(), ignored))
        raiseFileError(FileError::FileNotFound, name, "there is no such file");
    if (code == std::errc::no_such_file_or_directory || code == std::errc::not_a_directory)
        raiseFileError(FileError::PathNotFound, name, "its folder does not exist");
    raiseFileError(FileError::AccessError, name, reasonText(code));
}

// A start of a character at the end of the text whose other bytes are missing.
std::size_t brokenEnd(std::string_view bytes)
{
    for (std::size_t back = 1; back <= 3 && back <= bytes.size(); ++back) {
        const auto byte = static_cast<unsigned char>(bytes[bytes.size() - back]);
        if ((byte & 0xC0U) == 0x80U) continue;
        const std::size_t length = byte >= 0xF0U ? 4 : byte >= 0xE0U ? 3 : byte >= 0xC0U ? 2 : 1;
        return length > back ? back : 0;
    }
    return 0;
}

} // namespace

FileBytes readFile(const fs::path& file, std::string_view name, std::uintmax_t largest)
{
    // Not blocking: a pipe put in the place of a file must not stop the panel.
    const Descriptor descriptor{::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)};
    if (!descriptor.isOpen()) raiseOpenError(file, name, lastError());

    struct stat status { };
    if (::fstat(descriptor.number(), &status) != 0)
        raiseFileError(FileError::AccessError, name, reasonText(lastError()));
    if (S_ISDIR(status.st_mode)) raiseFileError(FileError::AccessError, name, "it is a folder");
    if (!S_ISREG(status.st_mode)) raiseFileError(FileError::AccessError, name, "it is no ordinary file");
    if (static_cast<std::uintmax_t>(status.st_size) > largest)
        raiseFileError(FileError::AccessError, name, tooLarge(largest));

    auto readSome = [&](char* buffer, std::size_t size) -> std::ptrdiff_t {
        return ::read(descriptor.number(), buffer, size);
    };
    return readToEnd(readSome, largest, name);
}

FileBytes readToEnd(ReadSome readSome, std::uintmax_t largest, std::string_view name)
{
    constexpr std::size_t blockSize = 16384; // most files of a project are smaller
    FileBytes result;
    const auto failed = [&](const std::string& reason) {
        result.bytes.resize(result.bytes.size() - brokenEnd(result.bytes));
        result.failure = fileError(FileError::AccessError, name, reason);
    };
    while (true) {
        const std::size_t before = result.bytes.size();
        if (before > largest) {
            result.bytes.resize(static_cast<std::size_t>(largest));
            failed(tooLarge(largest));
            return result;
        }
        result.bytes.resize(before + blockSize);
        const std::ptrdiff_t count = readSome(result.bytes.data() + before, blockSize);
        const int reason = errno;
        result.bytes.resize(before + static_cast<std::size_t>(count > 0 ? count : 0));
        if (count == 0) return result;
        if (count > 0 || reason == EINTR) continue;
        failed(reasonText({reason, std::generic_category()}));
        return result;
    }
}

} // namespace servopanel::portable
