// Goes before every source of the library while it is tested with mutants: code that was broken on purpose. All of them are
// compiled in at once; the number of the one that acts is in the environment.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <string_view>
#include <type_traits>
#include <vector>

namespace mutants {

struct Run {
    int acting = number("MUTANT");
    const char* reachedFile = std::getenv("MUTANTS_REACHED");
    std::vector<bool> reached;

    static int number(const char* name)
    {
        const char* const text = std::getenv(name);
        return text == nullptr ? -1 : std::atoi(text);
    }
    void reach(int id)
    {
        const auto place = static_cast<std::size_t>(id);
        if (reached.size() <= place) reached.resize(place + 1);
        if (reached[place]) return;
        reached[place] = true;
        // At once: programs may end in any way.
        if (std::FILE* const file = std::fopen(reachedFile, "a")) {
            std::fprintf(file, "%d\n", id);
            std::fclose(file);
        }
    }
};

inline Run& run()
{
    static Run* const only = new Run; // asked until the very end of a program
    return *only;
}

inline bool actsNow(int id)
{
    Run& state = run();
    if (state.reachedFile != nullptr) state.reach(id);
    return state.acting == id;
}

constexpr bool acts(int id) { return !std::is_constant_evaluated() && actsNow(id); }

template <class T>
constexpr T oneMore(int id, T value)
{
    return acts(id) ? static_cast<T>(value + T{1}) : value;
}

constexpr const char* text(int id, const char* plain, const char* misspelt) { return acts(id) ? misspelt : plain; }
constexpr std::string_view text(int id, std::string_view plain, std::string_view misspelt)
{
    return acts(id) ? misspelt : plain;
}

// Two mutants each: the bound moved, the comparison turned round.
template <class L, class R>
constexpr bool less(int id, const L& l, const R& r) { return acts(id) ? l <= r : acts(id + 1) ? !(l < r) : l < r; }
template <class L, class R>
constexpr bool lessEqual(int id, const L& l, const R& r) { return acts(id) ? l < r : acts(id + 1) ? !(l <= r) : l <= r; }
template <class L, class R>
constexpr bool greater(int id, const L& l, const R& r) { return acts(id) ? l >= r : acts(id + 1) ? !(l > r) : l > r; }
template <class L, class R>
constexpr bool greaterEqual(int id, const L& l, const R& r) { return acts(id) ? l > r : acts(id + 1) ? !(l >= r) : l >= r; }

template <class L, class R>
constexpr bool equal(int id, const L& l, const R& r) { return acts(id) != static_cast<bool>(l == r); }
template <class L, class R>
constexpr bool unequal(int id, const L& l, const R& r) { return acts(id) != static_cast<bool>(l != r); }

template <class L, class R>
constexpr auto plus(int id, const L& l, const R& r) -> decltype(l + r) { return acts(id) ? l - r : l + r; }
template <class L, class R>
constexpr auto minus(int id, const L& l, const R& r) -> decltype(l - r) { return acts(id) ? l + r : l - r; }
template <class L, class R>
constexpr auto times(int id, const L& l, const R& r) -> decltype(l * r) { return acts(id) ? l / r : l * r; }
template <class L, class R>
constexpr auto over(int id, const L& l, const R& r) -> decltype(l / r) { return acts(id) ? l * r : l / r; }
template <class L, class R>
constexpr auto rest(int id, const L& l, const R& r) -> decltype(l % r) { return acts(id) ? l * r : l % r; }
template <class L, class R>
constexpr auto both(int id, const L& l, const R& r) -> decltype(l & r) { return acts(id) ? l | r : l & r; }
template <class L, class R>
constexpr auto either(int id, const L& l, const R& r) -> decltype(l | r) { return acts(id) ? l & r : l | r; }
template <class L, class R>
constexpr auto left(int id, const L& l, const R& r) -> decltype(l << r) { return acts(id) ? l >> r : l << r; }
template <class L, class R>
constexpr auto right(int id, const L& l, const R& r) -> decltype(l >> r) { return acts(id) ? l << r : l >> r; }

// One mutant for each label of a switch: it stands for the number above.
template <class T>
constexpr T switched(int id, T value, std::initializer_list<int> labels)
{
    for (const int label : labels) {
        if (acts(id)) return value == label + 1 ? static_cast<T>(label) : value == label ? T{-1} : value;
        ++id;
    }
    return value;
}

template <class T>
constexpr T other(int id, const T& one, const T& other) { return acts(id) ? other : one; }

// A trap that lets through what fails in its statement.
template <class Trap, class F>
void statement(int id, Trap&& trap, F run) { acts(id) ? run() : trap(run); }
template <class Trap, class F>
bool condition(int id, Trap&& trap, F test) { return acts(id) ? test() : trap.condition(test); }
template <class Trap, class F>
auto decision(int id, Trap&& trap, F test) { return acts(id) ? test() : trap.decision(test); }

// Which of `count` statements comes at a place; mutant id + i changes statement i with the next one.
constexpr int step(int id, int count, int place)
{
    for (int i = 0; i + 1 < count; ++i)
        if (acts(id + i)) return place == i ? i + 1 : place == i + 1 ? i : place;
    return place;
}

} // namespace mutants
