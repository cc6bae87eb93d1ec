#pragma once

#include "basic/error.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace servopanel::basic {

// An array like CheckedArray, from 0 on, for many large elements of which few are used: one is made when it, or one
// behind it, is about to be written for the first time. Until then it reads as empty. Making one may move the others.
template <class T, std::size_t Count>
class GrowingArray {
public:
    T& operator[](std::int32_t index)
    {
        const std::size_t at = position(index);
        // Room that is not used costs nothing, moving does.
        if (at >= elements_.capacity()) elements_.reserve(at < roomAtFirst ? roomAtFirst : Count);
        if (at >= elements_.size()) elements_.resize(at + 1);
        return elements_[at];
    }
    const T& operator[](std::int32_t index) const
    {
        const std::size_t at = position(index);
        return at < elements_.size() ? elements_[at] : empty();
    }

private:
    static constexpr std::size_t roomAtFirst = Count < 128 ? Count : 128;

    static const T& empty()
    {
        static const T element{};
        return element;
    }
    static std::size_t position(std::int32_t index)
    {
        if (index < 0 || index >= static_cast<std::int32_t>(Count)) raise(ErrorNumber::SubscriptOutOfRange);
        return static_cast<std::size_t>(index);
    }

    std::vector<T> elements_;
};

} // namespace servopanel::basic
