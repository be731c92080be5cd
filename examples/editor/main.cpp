#include "EditorWindow.h"

#include <ORVUnit.h>

#include <QApplication>
#include <QLocale>
#include <QScreen>
#include <QTranslator>

/*! editor [FILE]: a small editor for Rich Text Format. */
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("orvrtf-editor"));

    // Of the window and of the library. There is none where messages stay in English.
    QTranslator translator;
    const QString translations = QApplication::applicationDirPath() + QStringLiteral("/" ORVRTF_TRANSLATIONS);
    if (translator.load(QLocale(), QStringLiteral("orvrtf"), QStringLiteral("_"), translations))
        QApplication::installTranslator(&translator);
    QApplication::setApplicationDisplayName(QApplication::translate("main", "RTF editor"));

    // Documents are shown in the pixels that Qt counts with.
    ORVUnit::setScreenResolution(qRound(QApplication::primaryScreen()->logicalDotsPerInch()));
    EditorWindow window;
    window.show();
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() > 1)
        window.openFile(arguments.at(1));
    return QApplication::exec();
}
