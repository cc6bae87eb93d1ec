#pragma once

#include "monkey/parameters.h"

#include <cstdint>
#include <deque>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace servopanel::monkey {

// An operator without sense, on a machine that changes and fails at any time: one scenario command after the other, the
// same ones for the same seed. Left to chance alone, hardly a value would reach the machine: an input that is free, on a
// page that is open, is found too seldom. Therefore most commands belong to something that an operator sets out to do,
// and anything may come between its steps.
class RandomOperator {
public:
    // preparation: what this host needs before anything can be done.
    explicit RandomOperator(std::uint32_t seed, std::vector<std::string> preparation = {})
        : random_{seed}
        , preparation_{std::move(preparation)}
    {
    }

    std::string next();

private:
    int upTo(int most); // 0 to most
    bool isRare(int percent) { return upTo(99) < percent; }
    std::string number();
    std::string valid();
    std::string input();
    static std::string inputOf(const Family& family);
    std::string machine();
    std::string failure();
    std::string loss();
    std::string operation();

    void setOut();
    void then(std::string command) { coming_.push_back(std::move(command)); }
    void openPage(int level);
    void edit();
    void confirmWithFailure();
    void leaveAndComeBack();
    void editDefinitions();
    void lookAround();
    void changeResolution();

    std::minstd_rand random_;
    std::vector<std::string> preparation_;
    int opened_ = 0; // the servo whose page is opened
    std::deque<std::string> coming_; // what is begun already
};

} // namespace servopanel::monkey
