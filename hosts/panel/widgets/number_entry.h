#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace servopanel::panel {

// A number that is being typed, with the limits that it must keep. Knows nothing of keys on a screen.
class NumberEntry {
public:
    // NoSign: only of a sign that the limits do not allow. NoFraction: of a number that must be whole. TooLong: only of a
    // character that did not fit any more. LimitsUnknown: only of a mask whose limits could not be read.
    enum class Verdict { Fine, NoNumber, TooSmall, TooLarge, NoSign, NoFraction, TooLong, LimitsUnknown };
    static constexpr std::size_t longest = 12; // characters that the display of the mask holds

    // The number as it is written elsewhere, with "." as its point; empty: there is none. The first digit replaces the
    // number that is there at first. Nothing limits it yet.
    void start(const std::string& number);
    // Limits that are missing do not limit.
    void setLimits(std::optional<double> lower, std::optional<double> upper);

    // Whether whatever takes the number holds whole numbers only; a number with decimals would be rounded there unseen.
    void setWhole(bool whole) { whole_ = whole; }
    bool isWhole() const { return whole_; }

    Verdict digit(int digit); // 0..9
    Verdict point(); // once; whoever types a comma means the same
    // Changes the sign where values below 0 are allowed, else changes nothing and says so. Before the first digit it stays
    // for the number that follows.
    Verdict sign();
    void back(); // takes away the last character; all of a number that is written with an exponent
    void clear();
    // Up or down by so many of the smallest place that the value at the start, the limits or what is typed have, not
    // beyond the limits.
    void step(int places);

    bool signAllowed() const { return !lower_ || *lower_ < 0; }
    const std::string& text() const { return text_; }
    std::optional<double> value() const;
    Verdict verdict() const;
    bool changed() const; // a number, and another one than at the start
    bool isEntered() const { return !fresh_; } // something was typed or stepped, the same number may be
    const std::optional<double>& lower() const { return lower_; }
    const std::optional<double>& upper() const { return upper_; }

private:
    void begin(); // before the first typed character
    bool hasExponent() const; // "1E-05": very small and very large numbers
    int decimals() const; // of the step that the value moves by
    std::string text_;
    std::optional<double> first_;
    int firstDecimals_ = 0;
    int decimals_ = 0; // of the value at the start and of its limits
    std::optional<double> lower_;
    std::optional<double> upper_;
    bool whole_ = false;
    bool fresh_ = true; // nothing was typed; a sign waits for its digits
    bool keepsSign_ = false; // the sign was chosen for a number that is still to come
};

} // namespace servopanel::panel
