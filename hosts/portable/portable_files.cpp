#include "portable/portable_files.h"

#include "portable/file_error.h"
#include "portable/text_decoding.h"
#include "portable/text_reading.h"
#include "portable/text_writing.h"

#include <system_error>

namespace servopanel::portable {

namespace fs = std::filesystem;

platform::TextFile PortableFiles::openText(std::string_view path)
{
    FileBytes content = readFile(mapping_.resolve(path), path);
    return {decodedText(std::move(content.bytes)), std::move(content.failure)};
}

void PortableFiles::writeText(std::string_view path, std::string_view text)
{
    replaceFile(mapping_.resolve(path), text, path);
}

bool PortableFiles::exists(std::string_view path) { return !path.empty() && mapping_.find(path).has_value(); }

void PortableFiles::createFolder(std::string_view path)
{
    const fs::path folder = mapping_.resolve(path);
    std::error_code code;
    if (!fs::is_directory(folder.parent_path(), code))
        raiseFileError(FileError::PathNotFound, path, "the folder above it does not exist");
    if (fs::create_directory(folder, code)) return;
    if (!code) code = std::make_error_code(std::errc::file_exists);
    raiseFileError(FileError::AccessError, path, reasonText(code));
}

} // namespace servopanel::portable
