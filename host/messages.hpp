// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

QT_BEGIN_NAMESPACE
class QMainWindow;
class QWidget;
QT_END_NAMESPACE

namespace vkr {

// The message boxes of the host. Every one is modal to the window it is about.

// Something went wrong; `more` says what to do about it. Details are lines to unfold.
void tellFault(QWidget* parent, const QString& what, const QString& more = {},
               const QStringList& details = {});
void tellNews(QWidget* parent, const QString& what, const QString& more = {},
              const QStringList& details = {});

// In the status bar for a moment: something went well. Cut in the middle where room is short.
void notice(QMainWindow& window, const QString& what);

struct Choice {
    QString label; // with its mnemonic
    enum class Role { accept, destroy, reject } role = Role::accept;
};
// The index of the choice. Escape and closing the box stand for the last one, which is the default,
// too, where `defaultChoice` names no other.
int ask(QWidget* parent, const QString& what, const QString& more, const QList<Choice>& choices,
        int defaultChoice = -1, const QStringList& details = {});

// Yes or no about something that can't be taken back; no is the default.
bool askFirst(QWidget* parent, const QString& what, const QString& more, const QString& doIt);

} // namespace vkr
