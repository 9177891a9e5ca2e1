// SPDX-License-Identifier: MIT
#pragma once

#include <QTextBrowser>
#include <QWidget>

namespace vkr {

// The window of the help: one for the whole application, beside the windows it explains. At any
// time there is a way back only where pages were turned; no page comes twice in a row there.
class HelpViewer : public QWidget {
    Q_OBJECT
  public:
    explicit HelpViewer(QWidget* parent = nullptr);
    ~HelpViewer() override;

    // Brings the page of a MoreHelp number or of the host to the front; the contents where there
    // is no page of that number.
    void showPage(int number);
    [[nodiscard]] int shownPage() const { return shown_; } // 0: the contents

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void turnTo(int number);
    void goTo(const QUrl& url);
    void goBack();

    QTextBrowser* text_;
    QAction* back_;
    QList<int> visited_;
    int shown_ = 0;
};

} // namespace vkr
