#include <QtCore/QtGlobal>
#include <QtGui/QGuiApplication>

namespace {

void ignoreMessage(QtMsgType, const QMessageLogContext&, const QString&) { }

} // namespace

// What all targets need once: an application, without a display, whose complaints about broken pictures and
// absurd fonts do not fill the log.
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
