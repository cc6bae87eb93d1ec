#include "panel/program/options.h"

#include "machine/access_level.h"
#include "machine/screen_rows.h"
#include "mqtt/broker_link.h"
#include "portable/whole_number.h"

#include <memory>
#include <variant>

namespace servopanel::panel {

namespace {

using portable::wholeNumber;

void take(Options& options, const std::string& name, const std::string& value)
{
    const auto fail = [&](const std::string& expected) {
        options.problem = name + " takes " + expected + ", not '" + value + "'";
    };
    if (name == "--resolution") {
        options.settings.resolution = wholeNumber<int>(value);
        if (!machine::isResolution(options.settings.resolution.value_or(0))) fail("800, 1024 or 1280");
    } else if (name == "--zoom") {
        options.settings.zoom = PanelWindow::Zoom::ToWindow;
        if (value != "fit") fail("fit");
    } else if (name == "--language") {
        options.settings.language = value;
    } else if (name == "--level") {
        const int level = wholeNumber<int>(value).value_or(-1);
        if (level < 0 || level > machine::highestAccessLevel)
            fail("an access level from 0 to 5");
        else
            options.settings.level = static_cast<std::int16_t>(level);
    } else if (name == "--state") {
        options.settings.state = value;
    } else if (name == "--trace") {
        options.settings.trace = value;
    } else if (name == "--tour") {
        options.tour = value;
    } else if (name == "--name") {
        options.settings.name = value;
        if (value.empty()) fail("the name of this panel");
    } else if (name == "--journal") {
        options.settings.journal = value;
        if (value.empty()) fail("a folder");
    } else if (mqtt::BrokerOptions::knows(name)) {
        options.broker.set(name, value);
    } else {
        options.problem = "unknown option " + name;
    }
}

void takeBroker(Options& options)
{
    auto address = options.broker.address();
    if (const auto* const problem = std::get_if<std::string>(&address)) {
        options.problem = *problem;
        return;
    }
    options.settings.broker = BrokerSettings{.viewing = options.viewing,
        .makeLink = [address = std::get<mqtt::BrokerAddress>(address),
                        client = "panel-" + options.settings.name]() -> std::unique_ptr<mqtt::Link> {
            return std::make_unique<mqtt::BrokerLink>(
                mqtt::BrokerLinkSettings{.address = address, .client = client});
        }};
}

} // namespace

bool writesUnseen(const Options& options)
{
    return options.settings.broker && !options.viewing && options.settings.journal.empty()
        && !options.noJournal;
}

Options parseOptions(const std::vector<std::string>& arguments)
{
    Options options;
    for (std::size_t i = 0; i < arguments.size() && options.problem.empty(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--help" || argument == "-h") {
            options.help = true;
            return options;
        }
        if (argument == "--check") {
            options.check = true;
            continue;
        }
        if (argument == "--view-only") {
            options.viewing = true;
            continue;
        }
        if (argument == "--no-journal") {
            options.noJournal = true;
            continue;
        }
        if (argument.starts_with("--")) {
            const std::size_t sign = argument.find('=');
            if (sign != std::string::npos)
                take(options, argument.substr(0, sign), argument.substr(sign + 1));
            else if (i + 1 == arguments.size())
                options.problem = argument + " needs a value";
            else
                take(options, argument, arguments[++i]);
        } else if (options.settings.project.empty()) {
            options.settings.project = argument;
        } else {
            options.problem = "one project at a time: '" + argument + "'";
        }
    }
    if (options.problem.empty() && options.settings.project.empty()) options.problem = "no project given";
    if (options.problem.empty() && options.broker.any())
        takeBroker(options);
    else if (options.problem.empty() && options.viewing)
        options.problem = "--view-only needs --broker";
    if (options.problem.empty() && options.noJournal && !options.settings.journal.empty())
        options.problem = "either --journal or --no-journal";
    return options;
}

std::string helpText()
{
    return "servo-panel PROJECT [OPTION...]\n"
           "\n"
           "Opens the HMI project in the folder PROJECT as an operator sees it.\n"
           "\n"
           "  --resolution 800|1024|1280   width of the panel in pixels instead of the project's\n"
           "  --zoom fit                   as large as the monitor or the window allows; with 1280 pixels "
           "also the\n"
           "                               better choice for a monitor of 1024, where the menu has fewer "
           "places\n"
           "  --language NUMBER|CODE       language at start instead of the project's\n"
           "  --level N                    access level instead of the project's, 0 operator to 5 service\n"
           "  --state FOLDER               keep language and servo there and come back to them after a "
           "restart or "
           "a power cut\n"
           "  --journal FOLDER             keep every write to the machines there, for servo-journal\n"
           "  --no-journal                 do without, and without a word about it\n"
           "  --broker ADDRESS             the machines are on the broker at HOST[:PORT] or unix:/PATH, not "
           "in the\n"
           "                               panel itself\n"
           "  --name NAME                  of this panel, its own among all panels of the line; otherwise "
           "the\n"
           "                               computer's\n"
           "  --view-only                  with --broker: shows everything and writes nothing\n"
           "  --user, --password-file, --ca, --cert, --key\n"
           "                               who asks the broker, as for servo-machine\n"
           "  --trace FILE                 write everything that crosses the library's border to FILE\n"
           "  --tour FOLDER                play an operator's tour, save a picture of every step to FOLDER,\n"
           "                               print what was written to the machine, and end\n"
           "  --check                      list what the project lacks, without a display, and end with 0 "
           "when "
           "that\n"
           "                               is nothing, 1 when it is something, 2 when there is no project\n"
           "  --help                       this text\n"
           "\n"
           "The signal HUP makes it read the project anew.\n"
           "\n"
           "Exit status: 0 at the end, 1 when the display went away or a tour did not find its way, 2 when "
           "the\n"
           "panel cannot be started.\n";
}

} // namespace servopanel::panel
