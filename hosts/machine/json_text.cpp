#include "machine/json_text.h"

#include "machine/json_mistake.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <unordered_set>
#include <utility>

namespace servopanel::machine {

namespace {

// Far more than anything needs; what is nested deeper is left out. What copies or compares a value goes as deep as the value is nested.
constexpr std::size_t deepest = 64;

// Builds the document event by event and keeps it when the text breaks off.
class Builder : public nlohmann::json_sax<Json> {
public:
    Builder(std::string_view text, const std::string& file, std::vector<Problem>& problems)
        : text_{text}
        , file_{file}
        , problems_{problems}
    {
    }

    Json take() { return std::move(root_); }

    bool null() override { return add(nullptr); }
    bool boolean(bool value) override { return add(value); }
    bool number_integer(std::int64_t value) override { return add(value); }
    bool number_unsigned(std::uint64_t value) override { return add(value); }
    bool number_float(double value, const std::string&) override { return add(value); }
    bool string(std::string& value) override { return add(std::move(value)); }
    bool binary(Json::binary_t&) override { return false; }

    bool start_object(std::size_t) override { return open(Json::object()); }
    bool end_object() override { return close(); }
    bool start_array(std::size_t) override { return open(Json::array()); }
    bool end_array() override { return close(); }

    bool key(std::string& name) override
    {
        if (skipped_ > 0) return true;
        Open& open = open_.back();
        open.isNew = open.names.insert(name).second;
        if (!open.isNew)
            problems_.push_back({file_, path() + "/" + name, "is there twice; the last one counts"});
        open.key = std::move(name);
        return true;
    }

    bool parse_error(
        std::size_t position, const std::string&, const nlohmann::detail::exception& error) override
    {
        JsonMistake mistake = jsonMistake(text_, position, error.what());
        const std::string_view before = text_.substr(0, mistake.at);
        const auto line = 1 + std::count(before.begin(), before.end(), '\n');
        problems_.push_back({file_, "line " + std::to_string(line), std::move(mistake.reason)});
        keepWhatIsComplete();
        return false;
    }

private:
    struct Open {
        Json value;
        std::string key; // of the member that is being read
        bool isNew = true; // it has not been there before
        std::unordered_set<std::string>
            names; // of all members: the document itself would look at each of them in turn
    };

    std::string path() const
    {
        std::string path;
        for (std::size_t i = 0; i + 1 < open_.size(); ++i) {
            const Open& outer = open_[i];
            path += "/" + (outer.value.is_array() ? std::to_string(outer.value.size()) : outer.key);
        }
        return path;
    }

    bool open(Json value)
    {
        if (open_.size() == deepest) {
            if (skipped_++ == 0) tellDepth();
            return true;
        }
        open_.push_back({std::move(value), {}, true, {}});
        return true;
    }

    void tellDepth()
    {
        if (std::exchange(isDepthTold_, true)) return;
        const Open& outermost = open_.front();
        problems_.push_back({file_,
            "/" + (outermost.value.is_array() ? std::to_string(outermost.value.size()) : outermost.key),
            "is nested deeper than " + std::to_string(deepest) + " levels"});
    }

    bool close()
    {
        if (skipped_ > 0) {
            --skipped_;
            return true;
        }
        Json value = std::move(open_.back().value);
        open_.pop_back();
        return add(std::move(value));
    }

    bool add(Json value)
    {
        if (skipped_ > 0) return true;
        if (open_.empty())
            root_ = std::move(value);
        else if (Open& outer = open_.back(); outer.value.is_array())
            outer.value.push_back(std::move(value));
        else if (outer.isNew)
            outer.value.get_ref<Json::object_t&>().emplace_back(outer.key, std::move(value));
        else
            outer.value[outer.key] = std::move(value);
        return true;
    }

    // Complete members of the top level and complete entries of a member that broke off; half an entry is worth nothing.
    void keepWhatIsComplete()
    {
        skipped_ = 0;
        if (open_.size() > 2) open_.resize(2);
        while (!open_.empty())
            close();
    }

    std::string_view text_;
    const std::string& file_;
    std::vector<Problem>& problems_;
    Json root_;
    std::vector<Open> open_;
    std::size_t skipped_ = 0; // lists and objects that are open beyond the deepest level
    bool isDepthTold_ = false;
};

} // namespace

Json readJson(std::string_view text, const std::string& file, std::vector<Problem>& problems)
{
    Builder builder{text, file, problems};
    Json::sax_parse(text, &builder);
    return builder.take();
}

} // namespace servopanel::machine
