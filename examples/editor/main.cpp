#include "EditorWindow.h"

#include <QApplication>

/*! editor [FILE]: a small editor for Rich Text Format. */
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("orvrtf-editor"));
    QApplication::setApplicationDisplayName(QApplication::translate("main", "RTF editor"));

    EditorWindow window;
    window.show();
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() > 1)
        window.openFile(arguments.at(1));
    return QApplication::exec();
}
