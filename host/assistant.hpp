// SPDX-License-Identifier: MIT
#pragma once

#include "host/assistant_facts.hpp"
#include "host/shown_company.hpp"

#include <QDialog>

#include <optional>

QT_BEGIN_NAMESPACE
class QLabel;
class QPlainTextEdit;
class QPushButton;
QT_END_NAMESPACE

namespace vkr {

// Says what the company's record knows of an object on screen: the stored figure in full, its
// history, the newest quarters. It stands beside the form and follows what is stored meanwhile; it
// only reads, so that a text that is half typed stays as it is. It is on show only once it was
// asked about an object.
class Assistant : public QDialog {
    Q_OBJECT
  public:
    explicit Assistant(const ShownCompany& company, QWidget* parent);
    ~Assistant() override;

    // Comes to the front with an object; a number that no object has is ignored. `shown` is the
    // text on screen, `element` the period that is asked about, if any.
    void tell(int object, const QString& shown, std::optional<int> element,
              const QString& dateFormat, const NumberMarks& marks = {});
    // Whether what is stored is as it was saved.
    void checkStored();
    [[nodiscard]] int object() const { // -1: none yet
        return topic_ != nullptr && topic_->object ? *topic_->object : -1;
    }

  signals:
    void helpAsked(int page);
    void historyAsked(vkr::Datum datum, std::optional<int> element);

  private:
    void layOutBody();
    void layOut();
    void refresh();
    void showOrigin(const AssistantFacts& facts);
    void standBeside(const QWidget& form);

    const ShownCompany& shownCompany_;
    const AssistantTopic* topic_ = nullptr;
    QString shown_;
    QString storedWhenAsked_;
    std::optional<int> element_;
    QString dateFormat_;
    NumberMarks marks_; // of the text on screen

    QLabel* title_;
    QLabel* company_;
    QLabel* damage_;
    QLabel* stored_;
    QPlainTextEdit* longText_; // in place of it
    QLabel* unit_;
    QLabel* origin_;
    QLabel* onScreen_;
    QWidget* body_;
    QLabel* chartTitle_;
    HistoryChart* chart_;
    QWidget* quartersBox_;
    QLabel* quartersTitle_;
    QLabel* quarters_;
    QPushButton* history_ = nullptr;
    QPushButton* close_;
};

} // namespace vkr
