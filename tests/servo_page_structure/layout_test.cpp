#include "page_test.h"

#include <vector>

namespace servopanel::testing {

namespace {

struct Element {
    std::string name; // "SollwertL(2)"
    float left = 0;
    float top = 0;
    float right = 0;
    float bottom = 0;
};

bool overlap(const Element& one, const Element& other)
{
    return one.left < other.right && other.left < one.right && one.top < other.bottom
        && other.top < one.bottom;
}

std::vector<std::string> array(const std::string& name, const std::vector<int>& indices)
{
    std::vector<std::string> elements;
    for (const int index : indices)
        elements.push_back(name + "(" + std::to_string(index) + ")");
    return elements;
}
std::vector<std::string> array(
    const std::string& name, int first, int last, const std::vector<int>& except = {})
{
    std::vector<int> indices;
    for (int index = first; index <= last; ++index)
        if (std::find(except.begin(), except.end(), index) == except.end()) indices.push_back(index);
    return array(name, indices);
}
std::vector<std::string> together(const std::vector<std::vector<std::string>>& parts)
{
    std::vector<std::string> all;
    for (const auto& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

// What the operator sees at the same time within one container.
std::vector<std::string> parameterPage()
{
    return {"Überschrift", "ParaPic", "MainRahmen(1)", "MainRahmen(2)", "ScrollBar", "Fußzeile"};
}
std::vector<std::string> diagnosisPage() { return {"Überschrift", "ParaPic", "DetailBox", "Fußzeile"}; }
std::vector<std::string> leftHalf()
{
    return together({array("BeschriftungL", 1, 10), array("BeschriftungL", {21, 22, 31, 32, 41}),
        array("SollwertL", 1, 10), array("SollwertL", {21, 22}), array("EinheitL", 1, 10),
        array("EinheitL", {21, 22}), array("SchalterL", {31, 32}), array("ZeichnungL", {41, 43, 45}),
        array("PunktL", {43, 45})});
}
std::vector<std::string> rightHalf()
{
    return together({array("BeschriftungR", 11, 20), array("BeschriftungR", {23, 24, 33, 34, 42}),
        array("SollwertR", 11, 20), array("SollwertR", {23, 24}), array("EinheitR", 11, 20),
        array("EinheitR", {23, 24}), array("SchalterR", {33, 34}), array("ZeichnungR", {42, 44, 46}),
        array("PunktR", {44, 46})});
}
std::vector<std::string> diagnosis()
{
    return together({array("Beschriftung", 101, 122), array("IstWert", 101, 120, {101, 102, 111}),
        array("Einheit", 101, 120, {101, 102, 111}), array("IstWertTab", 121, 140), {"Fehlertext"}});
}

class PageLayout : public PageTest, public ::testing::WithParamInterface<const char*> {
protected:
    void SetUp() override { show("var parameter<.aufloesung> = " + std::string{GetParam()} + "\n"); }

    float number(const std::string& property) { return std::stof(state(property)); }
    Element element(const std::string& name)
    {
        Element found{name, number(name + ".Left"), number(name + ".Top"), 0, 0};
        found.right = found.left + number(name + ".Width");
        found.bottom = found.top + number(name + ".Height");
        return found;
    }

    // Within the container's size, which is in twips, and beside each other.
    void expectApart(const std::vector<std::string>& names, float width, float height)
    {
        std::vector<Element> elements;
        for (const std::string& name : names)
            elements.push_back(element(name));
        for (std::size_t i = 0; i < elements.size(); ++i) {
            const Element& one = elements[i];
            EXPECT_GE(one.left, 0) << one.name;
            EXPECT_GE(one.top, 0) << one.name;
            EXPECT_LE(one.right, width) << one.name;
            EXPECT_LE(one.bottom, height) << one.name;
            EXPECT_LT(one.left, one.right) << one.name;
            EXPECT_LT(one.top, one.bottom) << one.name;
            for (std::size_t j = i + 1; j < elements.size(); ++j)
                EXPECT_FALSE(overlap(one, elements[j])) << one.name << " and " << elements[j].name;
        }
    }
    void expectApartIn(const std::string& container, const std::vector<std::string>& names)
    {
        expectApart(names, number(container + ".Width"), number(container + ".Height"));
    }
    // The page's own size; the header's strip is the shell's.
    float pageWidth() { return 15 * std::stof(GetParam()); }
    float pageHeight()
    {
        const std::string resolution = GetParam();
        return 15.0F * (resolution == "1280" ? 1024.0F : resolution == "1024" ? 768.0F : 600.0F);
    }
};

TEST_P(PageLayout, KeepsThePartsOfTheParameterPageApart)
{
    expectApart(parameterPage(), pageWidth(), pageHeight());
}
TEST_P(PageLayout, KeepsThePartsOfTheDiagnosisPageApart)
{
    expectApart(diagnosisPage(), pageWidth(), pageHeight());
}
TEST_P(PageLayout, KeepsTheItemsOfTheLeftHalfApart) { expectApartIn("MainBereich(1)", leftHalf()); }
TEST_P(PageLayout, KeepsTheItemsOfTheRightHalfApart) { expectApartIn("MainBereich(2)", rightHalf()); }
TEST_P(PageLayout, KeepsTheItemsOfTheDiagnosisApart) { expectApartIn("DetailBox", diagnosis()); }

TEST_P(PageLayout, ShowsTheWholeAreaInItsFrame)
{
    for (const std::string half : {"(1)", "(2)"}) {
        const Element frame = element("MainRahmen" + half);
        const Element area = element("MainBereich" + half);
        EXPECT_EQ(area.right - area.left, frame.right - frame.left);
        EXPECT_EQ(area.bottom - area.top, frame.bottom - frame.top);
    }
}

// The mask covers the other half, and of its own half only what lies above the rows from the tenth on.
TEST_P(PageLayout, LeavesTheEditedFieldInSightOfTheMask)
{
    const float height = number("Eingabemaske.Height");
    const float bottom = 2235 * pageHeight() / 15360 + height;
    EXPECT_LE(bottom, number("MainRahmen(1).Top") + number("SollwertL(10).Top"));
    EXPECT_LE(3210 * pageWidth() / 19200 + number("Eingabemaske.Width"), number("MainRahmen(2).Left"));
    EXPECT_GE(11810 * pageWidth() / 19200, number("MainRahmen(2).Left"));
}

INSTANTIATE_TEST_SUITE_P(Panel, PageLayout, ::testing::Values("1280", "1024", "800"));

} // namespace

} // namespace servopanel::testing
