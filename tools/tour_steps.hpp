// SPDX-License-Identifier: MIT
#pragma once

#include "host/workspace.hpp"
#include "record/enumerations.hpp"
#include "tools/event_driver.hpp"

#include <QDir>
#include <QPixmap>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <memory>

namespace vkr {

// What a tour is made of: keys and clicks in the windows of a database of its own, pictures of
// them, and expectations. Each step goes into the transcript, with what it has changed in the
// record.
class TourSteps {
  public:
    TourSteps(const QDir& folder, const QString& samples);

    // Goes through a visit and writes the transcript; what runTour answers.
    int take(const std::function<void(TourSteps&)>& visit);

    void start(); // with the list
    void open();  // the sample company, which is found by its symbol
    void openNew();
    void chapter(const QString& title);
    void tab(Qt::Key letter, TABObject expected);
    void fill(const char* field, const QString& text); // the one with the focus, and leaves it
    void click(const char* control);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    // A click that brings up a question; its text.
    QString clickAndAnswer(const char* control, const QString& answer, const char* file = nullptr);
    // `open` brings up a menu or a dialog and comes back when that is closed again, which `act`
    // does.
    void whileOpen(const std::function<void()>& open, const std::function<void(QWidget&)>& act);
    void chooseEntry(QWidget& menu, const QString& caption);
    void picture(QWidget& window, const char* file);
    void picture(const QPixmap& pixmap, const char* file) { save(pixmap, file); }
    void picture(QWidget& window, const QWidget& inFront, const char* file); // a menu or a dialog
    void expect(bool fulfilled, const QString& what);
    void expectText(const char* field, const QString& text);
    void expectNumber(const char* what, double is, double expected);
    void write(const QString& line) { lines_.append(line); }

    [[nodiscard]] const EventDriver& driver() const { return driver_; }
    [[nodiscard]] Workspace& workspace() { return *workspace_; }
    [[nodiscard]] CompanyWindow& window() { return *window_; } // that was opened last
    [[nodiscard]] const CompanyRecord& record() {
        return *record_;
    }                                                       // in it, also when it was closed
    [[nodiscard]] QWidget& control(const char* name) const; // in it

  private:
    void enter(CompanyWindow* window);
    void save(const QPixmap& pixmap, const char* file);
    void tellDifferences();

    QDir folder_;
    QString samples_;
    EventDriver driver_;
    QTemporaryDir home_;
    std::unique_ptr<Workspace> workspace_;
    QPointer<CompanyWindow> window_;
    std::shared_ptr<const CompanyRecord> record_;
    std::shared_ptr<const CompanyRecord> before_; // as it was before the event
    QStringList lines_;
    QStringList failures_;
};

} // namespace vkr
