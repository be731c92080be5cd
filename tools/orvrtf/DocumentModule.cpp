#include "DocumentModule.h"

#include "Commands.h"
#include "Options.h"
#include "Translations.h"

#include <QFont>
#include <QGuiApplication>

namespace {

/*! Nothing is ever shown: no display need be there, whatever the environment says of one. */
void needNoDisplay()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
}

/*! Text whose size is not stated has 12 points, as in RTF, whatever Qt makes of a display that is none. */
void useUsualFontSize()
{
    QFont font = QGuiApplication::font();
    font.setPointSize(12);
    QGuiApplication::setFont(font);
}

} // namespace

extern "C" Q_DECL_EXPORT int orvrtfRunCommand(const Options& options, char* programName)
{
    // Qt does not see the arguments: "-platform" and the like may be names of files.
    int count = 1;
    char* arguments[] = {programName, nullptr};
    if (options.command == Options::Check || options.command == Options::Strip) {
        const QCoreApplication application(count, arguments);
        const Translations translations(options.languages);
        return runCommand(options);
    }
    needNoDisplay();
    // What is made must not depend on a screen: a pixel is a 96th of an inch, as in HTML.
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    const QGuiApplication application(count, arguments);
    useUsualFontSize();
    const Translations translations(options.languages);
    return runCommand(options);
}
