// Form5, the load dialog: pages through the records of save.txt with Next and
// Previous and hands the chosen layout back through load.txt when it closes.
#pragma once

#include <QDialog>
#include <QString>
#include <QStringList>
#include <filesystem>
#include <functional>

#include "shell/prompts.h"
#include "store/layout_store.h"

class QLineEdit;
class QPushButton;

namespace vorn::shell {

class Form5 : public QDialog {
    Q_OBJECT
public:
    // Opens the dialog: the language from ini.txt in folder, every line of
    // save.txt, and load.txt emptied. F1 calls help.
    Form5(const std::filesystem::path& folder, Prompts& prompts, QWidget* owner,
          std::function<void()> help = {});

protected:
    void done(int result) override;  // however the dialog closes: load.txt := zagruz
    void keyPressEvent(QKeyEvent* event) override;

private:
    void command1Click();  // Next
    void command2Click();  // Previous
    void command4Click();  // Load
    void command5Click();  // Quit
    void showRecord(int k);
    void say(const QString& text);

    store::LayoutStore store_;
    Prompts& prompts_;
    std::function<void()> help_;
    QStringList spisok_;
    int posl_ = -1;
    int tek_ = -1;
    QString zagruz_;
    QString zapis_;
    bool eng_ = false;
    bool unloaded_ = false;
    QLineEdit* text1_ = nullptr;
    QPushButton* command1_ = nullptr;
    QPushButton* command2_ = nullptr;
    QPushButton* command4_ = nullptr;
    QPushButton* command5_ = nullptr;
};

}  // namespace vorn::shell
