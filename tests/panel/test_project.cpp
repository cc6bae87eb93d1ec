#include "test_project.h"

#include "portable/temporary_folder.h"
#include "recording/memory/memory_database.h"
#include "recording/replay.h"

#include <QImage>

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace servopanel::testing {

namespace {

// The rows of a scenario in a replay's memory, whatever the file is called.
class ScenarioEngine : public platform::DBEngine {
public:
    explicit ScenarioEngine(const std::string& scenario) { replay_.run(scenario); }
    std::unique_ptr<platform::Database> open(std::string_view) override
    {
        return replay_.host().project().database()->open(
            replay_.host().project().fullName("Servo\\Servo.mdb"));
    }

private:
    recording::Replay replay_;
};

bool startsWith(std::string_view text, std::string_view beginning)
{
    return text.substr(0, beginning.size()) == beginning;
}

std::string jsonText(std::string_view text)
{
    std::string made = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') made += '\\';
        made += c;
    }
    return made + "\"";
}

std::string diskName(std::string name)
{
    for (char& c : name)
        if (c == '\\') c = '/';
    return name;
}

} // namespace

TestProject::TestProject(const std::string& scenario)
    : scenario_{scenario}
{
    std::istringstream lines{scenario};
    std::string line;
    while (std::getline(lines, line)) {
        const std::string_view rest{line};
        if (startsWith(rest, "var ")) variable(rest.substr(4));
        if (startsWith(rest, "text ")) text(rest.substr(5));
        if (startsWith(rest, "picture ")) picture(rest.substr(8));
        // The rows come from memory, but the library looks whether there is a file.
        if (startsWith(rest, "db ")) write("Servo/Servo.mdb", "");
        if (!startsWith(rest, "file ")) continue;
        const std::string name = line.substr(5);
        std::string content;
        while (std::getline(lines, line) && line != "end")
            content += line + "\r\n";
        write(diskName(name), content);
    }
    write("Texts/en.txt", texts_);
    writeProjectFile();
    std::filesystem::create_directories(file("temporary"));
}

void TestProject::write(const std::string& name, const std::string& content) const
{
    std::filesystem::create_directories(file(name).parent_path());
    std::ofstream{file(name), std::ios::binary} << content;
}

void TestProject::replaceInFile(
    const std::string& name, const std::string& old, const std::string& text) const
{
    std::string content = tests::contentOf(file(name));
    const std::size_t at = content.find(old);
    if (at == std::string::npos) throw std::runtime_error{name + " has no '" + old + "'"};
    write(name, content.replace(at, old.size(), text));
}

void TestProject::variable(std::string_view rest)
{
    const std::size_t sign = rest.find(" = ");
    if (!variables_.empty()) variables_ += ",\n";
    variables_ += jsonText(rest.substr(0, sign)) + ": " + std::string{rest.substr(sign + 3)};
}

void TestProject::text(std::string_view rest)
{
    const std::size_t sign = rest.find(" = ");
    texts_ += std::string{rest.substr(0, sign)} + " = " + std::string{rest.substr(sign + 3)} + "\n";
}

void TestProject::picture(std::string_view rest)
{
    std::istringstream words{std::string{rest}};
    std::string name;
    int width = 0;
    int height = 0;
    words >> name >> width >> height;
    if (name.find(':') != std::string::npos) return; // the temporary folder is the test's own
    QImage image{width, height, QImage::Format_RGB32};
    image.fill(QColor{0xC0, 0xC0, 0xC0});
    std::filesystem::create_directories(file(diskName(name)).parent_path());
    image.save(QString::fromStdString(file(diskName(name)).string()), "BMP");
}

void TestProject::addEmptyTexts()
{
    constexpr int lastText = 100;
    std::string all;
    for (const int servo : {0, 3, 5, 7})
        for (int text = 0; text <= lastText; ++text) {
            const std::string key = "Servo.M1.Servo" + std::to_string(servo) + "." + std::to_string(text);
            if (texts_.find(key + " =") == std::string::npos) all += key + " =\n";
        }
    texts_ += all;
    write("Texts/en.txt", texts_);
}

void TestProject::writeProjectFile() const
{
    write("project.json",
        R"({"title": "Test", "resolution": 1280, "level": 2, "input": -1, "language": 1,
"languages": [{"number": 1, "code": "en", "name": "English"}],
"screens": {"1111": "Main"},
"variables": {
)" + variables_
            + "\n}}\n");
}

panel::PanelSettings TestProject::settings() const
{
    panel::PanelSettings settings;
    settings.project = folder();
    settings.temporary = file("temporary");
    settings.simulate = false;
    settings.makeDatabase = [scenario = scenario_] { return std::make_shared<ScenarioEngine>(scenario); };
    return settings;
}

panel::MessageSheet* openMessage(panel::Panel& panel)
{
    for (QObject* each : panel.window().stage().children()) {
        auto* sheet = dynamic_cast<panel::MessageSheet*>(each);
        if (sheet != nullptr && sheet->isVisible()) return sheet;
    }
    return nullptr;
}

MessageReader::MessageReader(panel::Panel& panel)
{
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this, &panel] {
        panel::MessageSheet* sheet = openMessage(panel);
        if (sheet == nullptr) return;
        texts_.push_back(sheet->text().toStdString());
        QTest::mouseClick(&sheet->okKey(), Qt::LeftButton);
    });
    timer_.start(5);
}

} // namespace servopanel::testing
