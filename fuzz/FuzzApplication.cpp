#include <QtCore/QtGlobal>
#include <QtGui/QGuiApplication>

namespace {

void ignoreMessage(QtMsgType, const QMessageLogContext&, const QString&) { }

} // namespace

/*!
    Runs once for every target: creates an application without a display, and keeps warnings about broken
    pictures and absurd fonts out of the log.
*/
extern "C" __attribute__((visibility("default"))) int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("FONTCONFIG_FILE", FUZZ_FONTS_CONF);
    qInstallMessageHandler(ignoreMessage);
    static int argumentCount = 1;
    Q_UNUSED(argc);
    static QGuiApplication application(argumentCount, *argv);
    return 0;
}
