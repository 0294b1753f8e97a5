// The help viewer: one window for the whole program, showing the page of a
// help file and topic from the pages compiled into the program.
#include "help_window.h"

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QShortcut>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

#include "shell/app_icon.h"
#include "shell/texts.h"

namespace vorn::shell {

namespace {

QPointer<HelpWindow>& instance() {
    static QPointer<HelpWindow> window;
    return window;
}

// The English help file is vorne.HLP; every other name is read as Russian.
Language languageOf(const QString& helpFile) {
    return helpFile.compare(text(Text::HelpFile, Language::English), Qt::CaseInsensitive) == 0 ? Language::English
                                                                                             : Language::Russian;
}

}  // namespace

HelpWindow::HelpWindow() : QWidget(nullptr, Qt::Window) {
    setObjectName(QStringLiteral("help"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowIcon(gameIcon());
    browser_ = new QTextBrowser(this);
    browser_->setObjectName(QStringLiteral("helpText"));
    browser_->setOpenExternalLinks(true);
    auto* box = new QVBoxLayout(this);
    box->setContentsMargins(0, 0, 0, 0);
    box->addWidget(browser_);
    resize(620, 520);
    auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(escape, &QShortcut::activated, this, &QWidget::close);
}

HelpWindow* HelpWindow::current() { return instance().data(); }

HelpWindow* HelpWindow::showTopic(const QString& helpFile, int topic, QWidget* near) {
    HelpWindow* window = instance().data();
    const bool fresh = window == nullptr;
    if (fresh) {
        window = new HelpWindow();
        instance() = window;
    }
    window->load(helpFile, topic);
    window->belongTo(QApplication::activeModalWidget());
    if (fresh && near) {
        const QRect owner = near->window()->frameGeometry();
        window->move(owner.center() - QPoint(window->width() / 2, window->height() / 2));
    }
    window->show();
    window->raise();
    window->activateWindow();
    return window;
}

QString HelpWindow::pagePath(const QString& helpFile, int topic) {
    const QString base = QFileInfo(helpFile).completeBaseName().toLower();
    return QStringLiteral(":/help/%1/%2.html").arg(base).arg(topic);
}

void HelpWindow::load(const QString& helpFile, int topic) {
    file_ = helpFile;
    topic_ = topic;
    const QString path = pagePath(helpFile, topic);
    if (!QFile::exists(path)) {
        const QString missing = text(Text::HelpMissing, languageOf(helpFile)).arg(helpFile + QLatin1Char('#') +
                                                                                   QString::number(topic));
        browser_->clearHistory();
        browser_->setPlainText(missing);
        setWindowTitle(missing);
        return;
    }
    browser_->setSource(QUrl(QStringLiteral("qrc") + path));
    const QString title = browser_->documentTitle();
    setWindowTitle(title.isEmpty() ? helpFile : title);
}

// A modal window blocks every window that is not its own. So while one is open
// the help window is made a window of it, and when it closes the help window
// goes on as a window of its own, where it was.
void HelpWindow::belongTo(QWidget* owner) {
    if (owner == owner_ || owner == this) return;
    if (owner_) owner_->removeEventFilter(this);
    owner_ = owner;
    const QRect frame = geometry();
    const bool shown = isVisible();
    setParent(owner, Qt::Window);
    setGeometry(frame);
    if (owner_) owner_->installEventFilter(this);
    if (shown) show();
}

bool HelpWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == owner_ && event->type() == QEvent::Hide) belongTo(nullptr);
    return false;
}

QString HelpWindow::pageText() const { return browser_->toPlainText(); }

}  // namespace vorn::shell
