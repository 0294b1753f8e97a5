// The load dialog. It reads the whole store once when it opens, pages through
// the records with Next and Previous, and hands the layout of the record shown
// back through load.txt when it closes, whichever way it is closed.
#include "form5.h"

#include <QFont>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

#include <array>

#include "board/board.h"
#include "fonts.h"
#include "help_window.h"
#include "store/record.h"
#include "store/settings.h"
#include "shell/texts.h"

namespace vorn::shell {
namespace {

constexpr int kHelpTopic = 1010;

// Geometry of the dialog in twips, 15 to the pixel.
constexpr int px(int twips) { return twips / kTwipsPerPixel; }
constexpr int kClientWidth = 6270;
constexpr int kClientHeight = 2145;
constexpr int kButtonWidth = 1815;
constexpr int kButtonHeight = 495;

// The dialog's font is MS Sans Serif 9.75 pt bold, shown in its stand-in where
// that family is not installed.
QFont dialogFont() {
    useGameFonts();
    QFont font(QStringLiteral("MS Sans Serif"));
    font.setPointSizeF(9.75);
    font.setBold(true);
    return font;
}

// A layout the board can lay out: anything else must not leave the dialog.
bool canBeLaidOut(const QString& layout) {
    if (layout.isEmpty()) return false;
    std::array<int16_t, 49> places{};
    return readLayout(layout.toStdString(), places) == LayoutProblem::None;
}

}  // namespace

Form5::Form5(const std::filesystem::path& folder, Prompts& prompts, QWidget* owner, std::function<void()> help)
    : QDialog(owner), store_(folder), prompts_(prompts), help_(std::move(help)) {
    setObjectName(QStringLiteral("Form5"));
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    setFixedSize(px(kClientWidth), px(kClientHeight));
    setFont(dialogFont());

    // The language is the one ini.txt names now, whatever it was last time.
    eng_ = store::Settings(folder).readEnglish();
    const Language lang = eng_ ? Language::English : Language::Russian;
    setWindowTitle(text(Text::LoadTitle, lang));

    text1_ = new QLineEdit(this);
    text1_->setObjectName(QStringLiteral("Text1"));
    text1_->setReadOnly(true);
    text1_->setGeometry(px(240), px(120), px(5775), px(375));

    auto button = [this, lang](const char* name, Text caption, int left, int top) {
        auto* b = new QPushButton(text(caption, lang), this);
        b->setObjectName(QString::fromLatin1(name));
        b->setGeometry(px(left), px(top), px(kButtonWidth), px(kButtonHeight));
        return b;
    };
    command1_ = button("Command1", Text::Command1, 240, 720);
    command2_ = button("Command2", Text::Command2, 240, 1440);
    command4_ = button("Command4", Text::Command4, 4200, 720);
    command5_ = button("Command5", Text::Command5, 4200, 1440);
    setTabOrder(text1_, command1_);
    setTabOrder(command1_, command2_);
    setTabOrder(command2_, command4_);
    setTabOrder(command4_, command5_);
    connect(command1_, &QPushButton::clicked, this, &Form5::command1Click);
    connect(command2_, &QPushButton::clicked, this, &Form5::command2Click);
    connect(command4_, &QPushButton::clicked, this, &Form5::command4Click);
    connect(command5_, &QPushButton::clicked, this, &Form5::command5Click);

    // load.txt is emptied as the dialog opens and holds no bytes at all until
    // the dialog closes and writes its answer there.
    store_.emptyHandOver();

    // The whole store, every line of it; nothing is shown yet.
    const std::vector<std::string> lines = store_.readRecords();
    spisok_.reserve(static_cast<qsizetype>(lines.size()));
    for (const std::string& line : lines) spisok_.append(QString::fromStdString(line));
    posl_ = static_cast<int>(spisok_.size()) - 1;
    tek_ = -1;
    zapis_.clear();
    zagruz_.clear();
}

void Form5::command1Click() {
    if (tek_ < posl_)
        ++tek_;
    else
        say(text(Text::LoadAtEnd, eng_ ? Language::English : Language::Russian));
    if (tek_ != -1) showRecord(tek_);
}

void Form5::command2Click() {
    if (tek_ > 0)
        --tek_;
    else
        say(text(Text::LoadAtStart, eng_ ? Language::English : Language::Russian));
    if (tek_ != -1) showRecord(tek_);
}

void Form5::command4Click() {
    if (zapis_.isEmpty() || !canBeLaidOut(zagruz_)) {
        say(text(Text::LoadNothing, eng_ ? Language::English : Language::Russian));
        return;
    }
    accept();
}

void Form5::command5Click() {
    zagruz_.clear();
    reject();
}

// The name lies between the ", " after the layout and the next comma; the
// layout is everything before that separator.
void Form5::showRecord(int k) {
    zapis_ = spisok_.at(k);
    const store::RecordView record = store::parseRecord(zapis_.toStdString());
    text1_->setText(QString::fromStdString(record.name));
    text1_->setCursorPosition(0);
    zagruz_ = QString::fromStdString(record.layout);
}

void Form5::say(const QString& message) {
    const Language lang = eng_ ? Language::English : Language::Russian;
    prompts_.message(this, message, text(Text::Zagol, lang), Prompts::Buttons::Ok, Prompts::Icon::None);
}

// Load, Quit, Escape and the close button all end here. The layout of the
// record shown goes to load.txt, or an empty line when there is none, when the
// player quit, or when the line shown cannot be laid out.
void Form5::done(int result) {
    if (!unloaded_) {
        unloaded_ = true;
        store_.writeHandOver(canBeLaidOut(zagruz_) ? zagruz_.toStdString() : std::string());
    }
    QDialog::done(result);
}

void Form5::keyPressEvent(QKeyEvent* event) {
    // Escape means "cancel": it quits without a layout, as Quit does. (The close
    // button, in contrast, hands back the record shown.)
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
        command5Click();
        return;
    }
    if (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier) {
        if (help_)
            help_();
        else
            HelpWindow::showTopic(text(Text::HelpFile, eng_ ? Language::English : Language::Russian), kHelpTopic,
                                  this);
        return;
    }
    QDialog::keyPressEvent(event);
}

}  // namespace vorn::shell
