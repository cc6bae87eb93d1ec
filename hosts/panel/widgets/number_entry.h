#pragma once

#include <optional>
#include <string>

namespace servopanel::panel {

// A number that is being typed, with the limits that it must keep. Knows nothing of keys on a screen.
class NumberEntry {
public:
    // NoSign: only of a sign that the limits do not allow. LimitsUnknown: only of a mask whose limits could not be read.
    enum class Verdict { Fine, NoNumber, TooSmall, TooLarge, NoSign, LimitsUnknown };

    // The number as it is written elsewhere, with "." as its point; empty: there is none. The first digit replaces the
    // number that is there at first. Nothing limits it yet.
    void start(const std::string& number);
    // Limits that are missing do not limit.
    void setLimits(std::optional<double> lower, std::optional<double> upper);

    void digit(int digit); // 0..9
    void point(); // once; whoever types a comma means the same
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
    std::string text_;
    std::optional<double> first_;
    int firstDecimals_ = 0;
    int decimals_ = 0; // of the value at the start and of its limits
    std::optional<double> lower_;
    std::optional<double> upper_;
    bool fresh_ = true; // nothing was typed; a sign waits for its digits
    bool keepsSign_ = false; // the sign was chosen for a number that is still to come
};

} // namespace servopanel::panel
