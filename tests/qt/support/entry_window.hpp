// SPDX-License-Identifier: MIT
#pragma once

#include "control/vkr_data_entry.hpp"
#include "desktop/form_view.hpp"
#include "desktop/vkr_data_entry_widget.hpp"

#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>
#include <memory>
#include <string_view>

namespace vkr {

// The component in a host's window, alone or below a field of the host's own.
class EntryWindow : public testing::Test {
  protected:
    enum class HostField { none, above };

    explicit EntryWindow(HostField field = HostField::none) {
        auto* column = new QVBoxLayout(&window);
        column->setContentsMargins({});
        if (field == HostField::above)
            column->addWidget(hostField = new QLineEdit(&window));
        column->addWidget(entry = new VKRDataEntryWidget(&window));
    }
    void open(const std::shared_ptr<iVKR_Company>& company) {
        entry->setCompany(company);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    [[nodiscard]] Form& form() const { return entry->component().form(); }
    // Null for a control without one.
    [[nodiscard]] QWidget* widgetOf(const Control& control) const {
        return entry->formView().widgetOf(control);
    }
    template <typename Widget = QLineEdit>
    [[nodiscard]] Widget* native(std::string_view name, int index = Control::noIndex) const {
        const auto* control = form().find(name, index);
        return control == nullptr ? nullptr : dynamic_cast<Widget*>(widgetOf(*control));
    }

    QWidget window;
    QLineEdit* hostField = nullptr;
    VKRDataEntryWidget* entry = nullptr;
};

} // namespace vkr
