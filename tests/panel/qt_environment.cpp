// One Qt application for all tests of the panel. It draws into memory, so that no screen is needed.
#include <gtest/gtest.h>

#include "panel/look/fonts.h"

#include <QApplication>
#include <QStyleFactory>

#include <memory>

namespace {

class QtEnvironment : public ::testing::Environment {
public:
    void SetUp() override
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application_ = std::make_unique<QApplication>(argc_, argv_);
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
        QApplication::setFont(servopanel::panel::panelFont(14));
    }
    void TearDown() override { application_.reset(); }

private:
    int argc_ = 1;
    char name_[11] = "panel_test";
    char* argv_[2] = {name_, nullptr};
    std::unique_ptr<QApplication> application_;
};

[[maybe_unused]] const auto* const environment = ::testing::AddGlobalTestEnvironment(new QtEnvironment);

} // namespace
