#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <stdlib.h>
#include <string>
#include <string_view>
#include <utility>

namespace servopanel::tests {

// A folder of its own for one test, removed with everything in it.
class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "servopanel-test-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error{"cannot make " + name};
        path_ = std::filesystem::canonical(name);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }

    // Makes a file, and the folders that it needs.
    std::filesystem::path file(const std::string& name, std::string_view content = "x") const
    {
        const std::filesystem::path file = path_ / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream{file, std::ios::binary} << content;
        return file;
    }
    std::filesystem::path folder(const std::string& name) const
    {
        std::filesystem::create_directories(path_ / name);
        return path_ / name;
    }

private:
    std::filesystem::path path_;
};

// Empty when there is no such file.
inline std::string contentOf(const std::filesystem::path& file)
{
    std::ostringstream content;
    content << std::ifstream{file, std::ios::binary}.rdbuf();
    return std::move(content).str();
}

// Sets an environment variable for the length of a test; nullptr takes it away.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char* name, const char* value)
        : name_{name}
    {
        if (const char* old = ::getenv(name)) {
            old_ = old;
            wasSet_ = true;
        }
        value != nullptr ? ::setenv(name, value, 1) : ::unsetenv(name);
    }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
    ~EnvironmentVariable() { wasSet_ ? ::setenv(name_, old_.c_str(), 1) : ::unsetenv(name_); }

private:
    const char* name_;
    std::string old_;
    bool wasSet_ = false;
};

} // namespace servopanel::tests
