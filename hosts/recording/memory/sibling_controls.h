#pragma once

#include "platform/hosted_control.h"
#include "recording/memory/memory_control.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace servopanel::recording {

// Footer keys. All are off at first but key 31, which every screen has.
class MemoryFooter : public MemoryControl {
public:
    using MemoryControl::MemoryControl;
    basic::Variant call(const platform::Member& member, platform::Args args) override;

    bool isKeyOn(std::int16_t key) const;
    // What an operation has set on a key; nothing for another member.
    std::optional<basic::Variant> setting(const platform::Member& member, std::int16_t key) const;

private:
    struct Key {
        bool on = false;
        std::int16_t text = 0;
        std::int32_t colour = 0xC0C0C0;
        std::string picture;
    };
    Key& keyOf(platform::Args args);

    std::map<std::int16_t, Key> keys_{{31, Key{true, 0, 0xC0C0C0, {}}}};
};

// Input field of a process variable. What it holds goes into its edit variable at once, without the library's doing.
class MemoryVarIn : public MemoryControl {
public:
    using MemoryControl::MemoryControl;

    // Whether the input mask may set this number here.
    bool accepts(double number) const;

protected:
    void changed(std::string_view property) override;
};

// A switch has a release of its own besides being enabled.
class MemorySwitch : public MemoryControl {
public:
    MemorySwitch(std::string_view className, std::string name, MemoryWorld& world);
    bool isEnabled() const override;
};

// With AutoSize a label is as wide as its caption.
class MemoryLabel : public MemoryControl {
public:
    using MemoryControl::MemoryControl;

protected:
    void changed(std::string_view property) override;
};

// With AutoSize a picture box is as large as its picture.
class MemoryPictureBox : public MemoryControl {
public:
    using MemoryControl::MemoryControl;

protected:
    void changed(std::string_view property) override;
};

class MemoryLanguage : public MemoryControl {
public:
    MemoryLanguage(std::string_view className, std::string name, MemoryWorld& world);
    basic::Variant call(const platform::Member& member, platform::Args args) override;
};

// Scroll positions count from 1.
class MemoryScrollBar : public MemoryControl {
public:
    MemoryScrollBar(std::string_view className, std::string name, MemoryWorld& world);
};

// A control of the library as its container sees it: the extender's properties are the host's, all others its own.
class MemoryHostedChild : public MemoryControl {
public:
    using MemoryControl::get;
    using MemoryControl::MemoryControl;
    using MemoryControl::put;
    basic::Variant get(const platform::Member& member, platform::Args args) override;
    void put(const platform::Member& member, platform::Args args, const basic::Variant& value) override;

    // nullptr from its end on.
    void setHosted(platform::HostedControl* hosted) { hosted_ = hosted; }
    platform::HostedControl* hosted() const { return hosted_; }

private:
    bool isOwnAffair(const platform::Member& member) const;

    platform::HostedControl* hosted_ = nullptr;
};

// A child of the class that the form names.
std::shared_ptr<MemoryControl> makeControl(std::string_view className, std::string name, MemoryWorld& world);

// Width in twips of a text in any font of the recording host: 7 pixels for each character.
float textWidthOf(std::string_view text, const MemoryWorld& world);

} // namespace servopanel::recording
