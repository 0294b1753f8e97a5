// The help viewer: one window for the whole program, showing the page of a
// help file and topic from the pages compiled into the program, with the
// contents list of that help file beside it.
#include "help_window.h"

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPointer>
#include <QRegularExpression>
#include <QScrollBar>
#include <QScreen>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTextBrowser>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>

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

QUrl pageUrl(const QString& helpFile, int topic) {
    return QUrl(QStringLiteral("qrc") + HelpWindow::pagePath(helpFile, topic));
}

// A page's title as its <title> gives it, or nothing when there is no such page.
QString titleOf(const QString& path) {
    QFile page(path);
    if (!page.open(QIODevice::ReadOnly)) return {};
    static const QRegularExpression title(QStringLiteral("<title>([^<]*)</title>"));
    return title.match(QString::fromUtf8(page.readAll())).captured(1).trimmed();
}

QToolButton* arrowButton(Qt::ArrowType arrow, const char* name, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setArrowType(arrow);
    button->setAutoRaise(true);
    button->setEnabled(false);
    return button;
}

}  // namespace

HelpWindow::HelpWindow() : QWidget(nullptr, Qt::Window) {
    setObjectName(QStringLiteral("help"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowIcon(gameIcon());

    browser_ = new QTextBrowser(this);
    browser_->setObjectName(QStringLiteral("helpText"));
    browser_->setOpenExternalLinks(true);
    // The pages bring their own light page and dark text; what Qt draws on them
    // by itself, such as the bullets of a list, takes the same colours, whatever
    // the desktop's scheme.
    QPalette page = browser_->palette();
    page.setColor(QPalette::Base, Qt::white);
    page.setColor(QPalette::Text, QColor(0x1a, 0x1a, 0x1a));
    browser_->setPalette(page);
    contents_ = new QListWidget(this);
    contents_->setObjectName(QStringLiteral("helpContents"));
    contents_->setSpacing(2);
    contents_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    back_ = arrowButton(Qt::LeftArrow, "helpBack", this);
    forward_ = arrowButton(Qt::RightArrow, "helpForward", this);

    auto* side = new QWidget(this);
    auto* buttons = new QHBoxLayout();
    buttons->setContentsMargins(0, 0, 0, 0);
    buttons->addWidget(back_);
    buttons->addWidget(forward_);
    buttons->addStretch();
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(buttons);
    column->addWidget(contents_);
    auto* splitter = new QSplitter(this);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(side);
    splitter->addWidget(browser_);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({200, 620});
    auto* box = new QVBoxLayout(this);
    box->setContentsMargins(0, 0, 0, 0);
    box->addWidget(splitter);
    resize(820, 560);
    setTabOrder(contents_, browser_);

    connect(back_, &QToolButton::clicked, browser_, &QTextBrowser::backward);
    connect(forward_, &QToolButton::clicked, browser_, &QTextBrowser::forward);
    connect(browser_, &QTextBrowser::backwardAvailable, back_, &QWidget::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, forward_, &QWidget::setEnabled);
    connect(browser_, &QTextBrowser::sourceChanged, this, &HelpWindow::shown);
    connect(contents_, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
        if (item) browser_->setSource(pageUrl(file_, item->data(Qt::UserRole).toInt()));
    });
    auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(escape, &QShortcut::activated, this, &QWidget::close);
    auto* backKey = new QShortcut(QKeySequence::Back, this);
    connect(backKey, &QShortcut::activated, browser_, &QTextBrowser::backward);
    auto* forwardKey = new QShortcut(QKeySequence::Forward, this);
    connect(forwardKey, &QShortcut::activated, browser_, &QTextBrowser::forward);
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
    if (fresh) window->placeNear(near);
    window->belongTo(QApplication::activeModalWidget());
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
    const bool otherFile = helpFile != file_;
    file_ = helpFile;
    topic_ = topic;
    fillContents();
    const QString path = pagePath(helpFile, topic);
    if (!QFile::exists(path)) {
        const QString missing = text(Text::HelpMissing, languageOf(helpFile)).arg(helpFile + QLatin1Char('#') +
                                                                                   QString::number(topic));
        browser_->clearHistory();
        browser_->setPlainText(missing);
        contents_->setCurrentItem(nullptr);
        setWindowTitle(missing);
        return;
    }
    browser_->setSource(pageUrl(helpFile, topic));
    if (otherFile) browser_->clearHistory();  // Back never leads into the other language
    shown(browser_->source());
}

// The contents list and the buttons speak the language of the help file shown.
void HelpWindow::fillContents() {
    if (contentsFile_ == file_) return;
    contentsFile_ = file_;
    const Language lang = languageOf(file_);
    const QSignalBlocker quiet(contents_);
    contents_->clear();
    // "Vorn v2.0 - Undo and redo" is listed as "Undo and redo".
    const QString prefix = text(Text::Title, lang) + QStringLiteral(" - ");
    for (const int topic : kHelpPages) {
        const QString title = titleOf(pagePath(file_, topic));
        if (title.isEmpty()) continue;
        auto* item = new QListWidgetItem(title.startsWith(prefix) ? title.mid(prefix.size()) : title, contents_);
        item->setData(Qt::UserRole, topic);
    }
    // Wide enough for every title, so the list never needs a scroll bar across.
    contents_->setMinimumWidth(contents_->sizeHintForColumn(0) + 2 * (contents_->frameWidth() + contents_->spacing()) +
                               contents_->verticalScrollBar()->sizeHint().width());
    contents_->setAccessibleName(text(Text::HelpContents, lang));
    back_->setToolTip(text(Text::HelpBack, lang));
    back_->setAccessibleName(back_->toolTip());
    forward_->setToolTip(text(Text::HelpForward, lang));
    forward_->setAccessibleName(forward_->toolTip());
}

// A page came into view, from the contents, a link, Back or Forward.
void HelpWindow::shown(const QUrl& page) {
    topic_ = page.fileName().section(QLatin1Char('.'), 0, 0).toInt();
    const QString title = browser_->documentTitle();
    setWindowTitle(title.isEmpty() ? file_ : title);
    const QSignalBlocker quiet(contents_);
    contents_->setCurrentItem(nullptr);
    for (int row = 0; row < contents_->count(); ++row)
        if (contents_->item(row)->data(Qt::UserRole).toInt() == topic_) contents_->setCurrentRow(row);
}

// The first place of the window: centred over `near`'s window, or the screen,
// then moved (and if need be shrunk) just enough that its whole frame, title bar
// included, lies in the screen's free area. The window manager has not framed
// the window yet, so its frame is taken to be as wide as the owner's.
void HelpWindow::placeNear(QWidget* near) {
    const QWidget* owner = near ? near->window() : nullptr;
    QScreen* screen = owner ? QGuiApplication::screenAt(owner->frameGeometry().center()) : nullptr;
    if (!screen) screen = owner ? owner->screen() : QGuiApplication::primaryScreen();
    if (!screen) return;
    const QRect area = screen->availableGeometry();
    const QRect around = owner ? owner->frameGeometry() : area;
    const QRect client = owner ? owner->geometry() : area;
    const QMargins frame(client.left() - around.left(), client.top() - around.top(), around.right() - client.right(),
                         around.bottom() - client.bottom());
    resize(size().boundedTo(area.size().shrunkBy(frame)));
    QRect placed(QPoint(), size().grownBy(frame));
    placed.moveCenter(around.center());
    placed.moveLeft(std::clamp(placed.left(), area.left(), std::max(area.left(), area.right() + 1 - placed.width())));
    placed.moveTop(std::clamp(placed.top(), area.top(), std::max(area.top(), area.bottom() + 1 - placed.height())));
    move(placed.topLeft());  // move() places the frame, not the client area
}

// A modal window blocks every window that is not its own. So while one is open
// the help window is made its transient window, which it does not block, and
// when it closes the help window goes on as a window of its own. The native
// window stays as it is, never hidden and shown anew: the window manager keeps
// it where it stands.
void HelpWindow::belongTo(QWidget* owner) {
    if (owner == owner_ || owner == this) return;
    if (owner_) owner_->removeEventFilter(this);
    owner_ = owner;
    if (owner_) owner_->installEventFilter(this);
    winId();  // the native window, made now if the window is new
    windowHandle()->setTransientParent(owner_ ? owner_->windowHandle() : nullptr);
}

bool HelpWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == owner_ && event->type() == QEvent::Hide) belongTo(nullptr);
    return false;
}

QString HelpWindow::pageText() const { return browser_->toPlainText(); }

}  // namespace vorn::shell
