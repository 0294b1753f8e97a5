// Help: the game's own help viewer. A help "file" (vorn.HLP, vorne.HLP) and a
// topic name a page compiled into the program at :/help/<file base, lower case>/<topic>.html.
#pragma once

#include <QString>
#include <QWidget>

class QTextBrowser;

namespace vorn::shell {

class HelpWindow : public QWidget {
    Q_OBJECT
public:
    // Shows (creating it the first time) the one help window of the program at the
    // given file and topic, and brings it to the front. objectName "help".
    // Asked for while a modal window is open, the help window belongs to that
    // window until it closes, so the modal window does not block it.
    static HelpWindow* showTopic(const QString& helpFile, int topic, QWidget* near = nullptr);
    // The window if it exists, else nullptr.
    static HelpWindow* current();

    const QString& helpFile() const { return file_; }
    int topic() const { return topic_; }
    QString pageText() const;  // the shown page as plain text

    // ":/help/vorn/1010.html" for ("vorn.HLP", 1010).
    static QString pagePath(const QString& helpFile, int topic);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    HelpWindow();
    void load(const QString& helpFile, int topic);
    void belongTo(QWidget* owner);
    QWidget* owner_ = nullptr;  // the modal window it belongs to for now, if any
    QTextBrowser* browser_ = nullptr;
    QString file_;
    int topic_ = 0;
};

}  // namespace vorn::shell
