// Help: the game's own help viewer. A help "file" (vorn.HLP, vorne.HLP) and a
// topic name a page compiled into the program at :/help/<file base, lower case>/<topic>.html.
// Beside the page, a contents list names every page of the help file shown;
// the pages link to each other, and Back and Forward retrace the pages read.
#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>
#include <array>

class QListWidget;
class QTextBrowser;
class QToolButton;
class QUrl;

namespace vorn::shell {

// The help's pages, in the order of its contents list. Each topic has a page in
// both help files, assets/help/vorn/<topic>.html (Russian) and
// assets/help/vorne/<topic>.html (English); the list shows each page's title
// without the game's name. A new page is two files and one line here.
inline constexpr std::array kHelpPages{
    1010,  // How to play: the game itself, the page F1 opens
    1020,  // Undo and redo
    1030,  // Drag and drop
    1040,  // Keyboard play and screen readers
    1050,  // The solver: Hint, Show solution, Winnable deals only, the verdict mark, Back
    1060,  // The table's size
    1070,  // Deals by number, the deal of the day, Continue the last game
    1080,  // The game record and the statistics
    1090,  // How hard a deal is
};

class HelpWindow : public QWidget {
    Q_OBJECT
public:
    // Shows (creating it the first time) the one help window of the program at the
    // given file and topic, and brings it to the front. objectName "help".
    // Asked for while a modal window is open, the help window belongs to that
    // window until it closes, so the modal window does not block it.
    // The first time, it opens centred over `near`'s window (or the screen),
    // its whole frame inside the screen's free area.
    static HelpWindow* showTopic(const QString& helpFile, int topic, QWidget* near = nullptr);
    // The window if it exists, else nullptr.
    static HelpWindow* current();

    const QString& helpFile() const { return file_; }
    int topic() const { return topic_; }  // of the page shown, followed through links
    QString pageText() const;  // the shown page as plain text

    // ":/help/vorn/1010.html" for ("vorn.HLP", 1010).
    static QString pagePath(const QString& helpFile, int topic);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    HelpWindow();
    void load(const QString& helpFile, int topic);
    void fillContents();
    void shown(const QUrl& page);
    void placeNear(QWidget* near);
    void belongTo(QWidget* owner);
    QPointer<QWidget> owner_;  // the modal window it belongs to for now, if any
    QTextBrowser* browser_ = nullptr;
    QListWidget* contents_ = nullptr;
    QToolButton* back_ = nullptr;
    QToolButton* forward_ = nullptr;
    QString file_;
    QString contentsFile_;  // the help file the contents list was filled from
    int topic_ = 0;
};

}  // namespace vorn::shell
