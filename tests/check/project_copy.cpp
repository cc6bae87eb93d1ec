#include "check/project_copy.h"

#include "recording/project/picture_size.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace servopanel::check::tests {

ProjectCopy::ProjectCopy()
    : path_{folder_.path() / "project"}
{
    fs::copy(DEMO_PROJECT, path_, fs::copy_options::recursive);
}

std::string ProjectCopy::content(const std::string& file) const
{
    return servopanel::tests::contentOf(place(file));
}

void ProjectCopy::write(const std::string& file, const std::string& content) const
{
    std::ofstream{place(file), std::ios::binary} << content;
}

void ProjectCopy::append(const std::string& file, const std::string& text) const
{
    std::ofstream{place(file), std::ios::binary | std::ios::app} << text;
}

void ProjectCopy::replace(const std::string& file, const std::string& from, const std::string& to) const
{
    std::string text = content(file);
    const std::size_t at = text.find(from);
    if (at == std::string::npos) {
        ADD_FAILURE() << file << " has no \"" << from << '"';
        return;
    }
    write(file, text.replace(at, from.size(), to));
}

void ProjectCopy::removeLine(const std::string& file, const std::string& beginning) const
{
    const std::string text = "\n" + content(file);
    const std::size_t at = text.find("\n" + beginning);
    if (at == std::string::npos) {
        ADD_FAILURE() << file << " has no line \"" << beginning << '"';
        return;
    }
    write(file, (text.substr(0, at) + text.substr(text.find('\n', at + 1))).substr(1));
}

void ProjectCopy::remove(const std::string& file) const
{
    EXPECT_GT(fs::remove_all(place(file)), 0U) << file;
}

void ProjectCopy::cut(const std::string& file) const
{
    fs::resize_file(place(file), fs::file_size(place(file)) / 2);
}

int ProjectCopy::line(const std::string& file, const std::string& text) const
{
    const std::string all = content(file);
    const std::size_t at = all.find(text);
    EXPECT_NE(at, std::string::npos) << file << " has no \"" << text << '"';
    const std::string_view before = std::string_view{all}.substr(0, at);
    return 1 + static_cast<int>(std::count(before.begin(), before.end(), '\n'));
}

PictureLook plainReader(const fs::path& file)
{
    const auto size = recording::pictureSize(servopanel::tests::contentOf(file));
    if (!size) return {0, 0, "is no picture"};
    return {size->width, size->height, {}};
}

} // namespace servopanel::check::tests
