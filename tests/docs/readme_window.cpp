// Linked to the example of README.md: prints what its windows show, and ends it when they are shown.

#include <QApplication>
#include <QTextEdit>
#include <QTextStream>
#include <QTimer>

namespace {

void printAndQuit()
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (const auto* edit = qobject_cast<QTextEdit*>(widget))
            QTextStream(stdout) << edit->toPlainText() << '\n';
    }
    QCoreApplication::quit();
}

void printWhenRunning()
{
    QTimer::singleShot(0, printAndQuit);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(printWhenRunning)
