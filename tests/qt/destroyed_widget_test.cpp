// SPDX-License-Identifier: MIT
// The widget, or its window, is destroyed while something of it is open.
#include "company/company_record.hpp"
#include "control/vkr_data_entry.hpp"
#include "desktop/form_view.hpp"
#include "desktop/vkr_data_entry_widget.hpp"
#include "tests/support/random_company.hpp"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <gtest/gtest.h>
#include <tuple>

namespace vkr {
namespace {

enum class Victim { widget, window };
enum class End { atOnce, later };

struct Opener {
    const char* name;
    TABObject tab;
    const char* control;
    int index;
    enum class By { click, doubleClick, rightPress } by;
};
using By = Opener::By;

// What opens a question, a colour dialog, a calendar, a menu, and a handler of the host's.
constexpr Opener openers[] = {
    {"Question", toYearly, "cmdAddYear", Control::noIndex, By::click},
    {"QuestionOfQuarters", toQuarterly, "cmdAddQuarter", Control::noIndex, By::click},
    {"Color", toOptions, "cmdColor", 1, By::click},
    {"Calendar", toCompany, "txtDateOfSource", Control::noIndex, By::doubleClick},
    {"MenuOfAField", toCompany, "txtName", Control::noIndex, By::rightPress},
    {"MenuOfACell", toYearly, "txtSales", 2, By::rightPress},
    {"HandlerOfTheHost", toCompany, "cmdOK", Control::noIndex, By::click},
};

class DestroyedWidget : public testing::TestWithParam<std::tuple<Opener, Victim, End>> {
  protected:
    DestroyedWidget() : window_(new QWidget), entry_(new VKRDataEntryWidget(window_)) {
        (new QVBoxLayout(window_))->addWidget(entry_);
        QObject::connect(entry_, &VKRDataEntryWidget::unloadRequest, window_, [this] {
            QMessageBox box(QMessageBox::Question, "Host", "Close?", QMessageBox::Ok);
            box.exec();
        });
    }
    ~DestroyedWidget() override { delete window_; }

    void SetUp() override {
        company_ = test::RandomCompany(4).record();
        company_->put_Name("Kept & Co");
        company_->put_LastFY(2024);
        company_->get_Settings()->put(setting::lockBasicInfo, false);
        entry_->setCompany(company_);
        window_->show();
        window_->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_));
    }
    void press(const Opener& opener) {
        entry_->setCurrentTab(opener.tab);
        const Control* control = entry_->component().form().find(opener.control, opener.index);
        ASSERT_NE(control, nullptr);
        QWidget* widget = entry_->formView().widgetOf(*control);
        ASSERT_NE(widget, nullptr);
        switch (opener.by) {
        case By::click:
            QTest::mouseClick(widget, Qt::LeftButton);
            break;
        case By::doubleClick:
            QTest::mouseClick(widget, Qt::LeftButton);
            QTest::mouseDClick(widget, Qt::LeftButton);
            break;
        case By::rightPress:
            QTest::mousePress(widget, Qt::RightButton);
            break;
        }
    }
    // Opens something, and ends the victim as soon as it is open.
    void endUnder(const Opener& opener, Victim victim, End how) {
        QTimer::singleShot(0, qApp, [this, victim, how] {
            open_ = QApplication::activePopupWidget();
            if (open_ == nullptr)
                open_ = QApplication::activeModalWidget();
            ASSERT_FALSE(open_.isNull()) << "nothing was opened";
            if (open_->windowTitle() == "Host") // the host's own box is the host's to close
                QTimer::singleShot(0, open_, &QWidget::close);
            const QPointer<QWidget> ended =
                victim == Victim::widget ? static_cast<QWidget*>(entry_.data()) : window_.data();
            if (how == End::atOnce)
                delete ended;
            else
                QTimer::singleShot(0, ended, &QObject::deleteLater);
        });
        press(opener);
        // What is left of it goes once the event is done.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QPointer<QWidget> window_;
    QPointer<VKRDataEntryWidget> entry_;
    std::shared_ptr<CompanyRecord> company_;
    QPointer<QWidget> open_;
};

std::string sceneName(const testing::TestParamInfo<std::tuple<Opener, Victim, End>>& scene) {
    const auto& [opener, victim, end] = scene.param;
    return std::string(opener.name) + (victim == Victim::widget ? "Widget" : "Window") +
           (end == End::atOnce ? "AtOnce" : "Later");
}

INSTANTIATE_TEST_SUITE_P(Under, DestroyedWidget,
                         testing::Combine(testing::ValuesIn(openers),
                                          testing::Values(Victim::widget, Victim::window),
                                          testing::Values(End::atOnce, End::later)),
                         sceneName);

TEST_P(DestroyedWidget, IsNoCrashAndNoAnswer) {
    const auto& [opener, victim, how] = GetParam();
    const auto before = company_->clone();
    endUnder(opener, victim, how);
    EXPECT_TRUE(entry_.isNull());
    EXPECT_TRUE(open_.isNull()) << "and is closed with it";
    EXPECT_EQ(company_->get_Name(), "Kept & Co");
    EXPECT_EQ(company_->get_LastFY(), before->get_LastFY());
    EXPECT_EQ(company_->get_YRevenueSeries(), before->get_YRevenueSeries());
    EXPECT_EQ(company_->get_QRevenueSeries(), before->get_QRevenueSeries());
    EXPECT_EQ(company_->get_DateOfSource(), before->get_DateOfSource());
}

TEST_P(DestroyedWidget, LetsGoOfTheRecord) {
    const auto& [opener, victim, how] = GetParam();
    endUnder(opener, victim, how);
    EXPECT_EQ(company_.use_count(), 1);
}

} // namespace
} // namespace vkr
