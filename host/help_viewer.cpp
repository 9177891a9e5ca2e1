// SPDX-License-Identifier: MIT
#include "host/help_viewer.hpp"

#include "host/help_pages.hpp"
#include "host/window_memory.hpp"

#include <QAction>
#include <QKeyEvent>
#include <QToolBar>
#include <QVBoxLayout>

#include <cassert>

namespace vkr {

namespace {
constexpr auto memoryName = "help";
} // namespace

HelpViewer::HelpViewer(QWidget* parent)
    : QWidget(parent, Qt::Window), text_(new QTextBrowser(this)),
      back_(new QAction(tr("&Back"), this)) {
    setWindowTitle(tr("Help"));
    text_->setObjectName(QStringLiteral("helpText"));
    text_->setAccessibleName(tr("Help"));
    text_->setOpenLinks(false);
    text_->setFrameShape(QFrame::NoFrame);
    text_->document()->setDocumentMargin(12);
    connect(text_, &QTextBrowser::anchorClicked, this, &HelpViewer::goTo);

    auto* bar = new QToolBar(this);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    back_->setShortcut(Qt::ALT | Qt::Key_Left);
    connect(back_, &QAction::triggered, this, &HelpViewer::goBack);
    bar->addAction(back_);
    auto* contents = bar->addAction(tr("&Contents"));
    connect(contents, &QAction::triggered, this, [this] { showPage(0); });

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(bar);
    layout->addWidget(text_);

    rememberedSize(*this, memoryName, {480, 600});
    turnTo(0);
}

HelpViewer::~HelpViewer() {
    rememberSize(*this, memoryName);
}

void HelpViewer::showPage(int number) {
    const int wanted = helpPage(number) == nullptr ? 0 : number;
    if (wanted != shown_)
        visited_.append(shown_);
    turnTo(wanted);
    show();
    raise();
    activateWindow();
    text_->setFocus();
}

void HelpViewer::turnTo(int number) {
    const HelpPage* page = helpPage(number);
    shown_ = page == nullptr ? 0 : number;
    text_->setHtml(page == nullptr ? helpContents() : helpText(*page));
    back_->setEnabled(!visited_.isEmpty());
    assert(visited_.isEmpty() || visited_.last() != shown_);
}

void HelpViewer::goTo(const QUrl& url) {
    if (url.scheme() == QLatin1String("page"))
        showPage(url.path().toInt());
}

void HelpViewer::goBack() {
    if (!visited_.isEmpty())
        turnTo(visited_.takeLast());
}

void HelpViewer::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace vkr
