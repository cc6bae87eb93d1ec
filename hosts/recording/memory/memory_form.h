#pragma once

#include "platform/form.h"
#include "platform/surface.h"
#include "recording/memory/memory_control.h"

#include <map>
#include <memory>
#include <string>
#include <utility>

namespace servopanel::recording {

// The children of one control of the library, made from its form data.
class MemoryForm : public platform::Form {
public:
    // owner: name of the control in traces.
    MemoryForm(std::string owner, MemoryWorld& world)
        : owner_{std::move(owner)}
        , world_{world}
    {
    }

    // self: the control that holds the children.
    void build(platform::FormData form, const MemoryControl& self);
    // From now on every call of the library fails with error 91.
    void end() { ended_ = true; }

    platform::ControlRef child(platform::ChildId id) override;
    void load(platform::ChildId id) override;
    float textWidth(platform::ChildId id, std::string_view text) override;

    // For the host's own use; nullptr when there is no such child.
    std::shared_ptr<MemoryControl> find(platform::ChildId id) const;
    // Every child there is now, sorted by name and index.
    template <class Visit>
    void forEach(Visit visit) const
    {
        for (const auto& [key, control] : children_)
            visit(platform::ChildId{key.first, key.second}, *control);
    }

private:
    using Key = std::pair<std::string, std::int16_t>;

    std::shared_ptr<MemoryControl> require(platform::ChildId id) const;
    bool hasArray(std::string_view name) const;
    void requireLife() const;

    std::string owner_;
    MemoryWorld& world_;
    std::map<Key, std::shared_ptr<MemoryControl>> children_;
    bool ended_ = false;
};

// What a control draws. Pixels are not kept; targets that do not exist fail as on a real host.
class MemorySurface : public platform::Surface {
public:
    MemorySurface(MemoryForm& form, MemoryControl& self)
        : form_{form}
        , self_{self}
    {
    }

    void end() { ended_ = true; }

    basic::Variant get(const platform::Member& member) override;
    void put(const platform::Member& member, const basic::Variant& value) override;
    void line(platform::ChildId target, float x1, float y1, float x2, float y2, std::int32_t colour,
        std::int16_t flags) override;
    void clear(platform::ChildId target) override;
    void refresh(platform::ChildId target) override;
    void bitBlt(platform::ChildId from, platform::ChildId to, std::int32_t x, std::int32_t y,
        std::int32_t width, std::int32_t height) override;
    void stretchBlt(platform::ChildId from, platform::ChildId to, std::int32_t fromWidth,
        std::int32_t fromHeight, std::int32_t width, std::int32_t height) override;

private:
    void requireTarget(platform::ChildId target) const;
    void requireLife() const;

    MemoryForm& form_;
    MemoryControl& self_;
    bool ended_ = false;
};

} // namespace servopanel::recording
