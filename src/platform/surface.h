#pragma once

#include "platform/child_id.h"
#include "platform/member.h"

#include <cstdint>

namespace servopanel::platform {

// What a control draws: its own face and the faces of its picture boxes. An empty ChildId means the control itself.
// Everything drawn is kept by the host; no paint event is needed. After the control's end every call raises error 91.
class Surface {
public:
    virtual ~Surface() = default;

    // A property of the control itself: Height and Width in twips as single (a request to its container), Picture.
    virtual basic::Variant get(const Member& member) = 0;
    virtual void put(const Member& member, const basic::Variant& value) = 0;

    // A straight line (its end point is not painted) or a box, in twips of the target, colour 0xBBGGRR.
    static constexpr std::int16_t lineFlags = 6; // from the first point to the second; so is any other value
    static constexpr std::int16_t filledBoxFlags =
        38; // with the points as opposite corners, filled with the colour
    virtual void line(
        ChildId target, float x1, float y1, float x2, float y2, std::int32_t colour, std::int16_t flags) = 0;

    virtual void clear(ChildId target) = 0;
    virtual void refresh(ChildId target) = 0;

    // Copies the whole picture of a box, unscaled, to (x, y) of another; all in pixels. What lies outside is cut off.
    virtual void bitBlt(ChildId from, ChildId to, std::int32_t x, std::int32_t y, std::int32_t width,
        std::int32_t height) = 0;
    // Copies the top left fromWidth x fromHeight pixels of a box onto width x height pixels of another, averaging.
    virtual void stretchBlt(ChildId from, ChildId to, std::int32_t fromWidth, std::int32_t fromHeight,
        std::int32_t width, std::int32_t height) = 0;
};

} // namespace servopanel::platform
