#include "ORV.h"
#include "editorhelpers.h"
#include "interchangehelpers.h"

using namespace editortest;
using namespace rtftest;

namespace {

const int Deadline = 30000; // ms, for what takes milliseconds on an idle machine

/*! An X server without a screen, on a display that is free; it ends with its last client. */
class XServer {
public:
    ~XServer()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    bool start()
    {
        m_process.start("Xvfb"_s, {"-displayfd"_s, "1"_s, "-terminate"_s, "-nolisten"_s, "tcp"_s});
        while (!m_process.canReadLine()) {
            if (!m_process.waitForReadyRead(Deadline))
                return false;
        }
        qputenv("DISPLAY", ':' + m_process.readLine().trimmed());
        return true;
    }

private:
    QProcess m_process;
};

QStringList clipboardArguments(const QString& direction, const QString& type)
{
    return {"-selection"_s, "clipboard"_s, direction, "-t"_s, type};
}

/*! What another program gets that pastes \a type. */
QByteArray pastedElsewhere(const QString& type)
{
    QProcess xclip;
    xclip.start("xclip"_s, clipboardArguments("-o"_s, type));
    // Not waitForFinished(): it is this program that has to answer.
    if (!QTest::qWaitFor([&] { return xclip.state() == QProcess::NotRunning; }, Deadline))
        return "nothing in time";
    return xclip.readAllStandardOutput();
}

/*! Another program that has \a data under \a type on the clipboard, as long as this lives. */
class CopiedElsewhere {
public:
    CopiedElsewhere(const QString& type, const QByteArray& data) : m_type(type), m_data(data)
    {
        m_xclip.start("xclip"_s, clipboardArguments("-i"_s, type) << "-quiet"_s);
        m_xclip.write(data);
        m_xclip.closeWriteChannel();
    }
    ~CopiedElsewhere()
    {
        m_xclip.kill();
        m_xclip.waitForFinished();
    }

    /*! Waits until the data has arrived on the clipboard. */
    bool isThere() const
    {
        return QTest::qWaitFor(
            [this] { return QApplication::clipboard()->mimeData()->data(m_type) == m_data; }, Deadline);
    }

private:
    QProcess m_xclip;
    QString m_type;
    QByteArray m_data;
};

} // namespace

/*! Copy and paste between the editor window and another process, through the clipboard of a real X server. */
class TestEditorClipboard : public EditorTest {
    Q_OBJECT

private slots:
    void copiedTextIsRtfElsewhere()
    {
        edit()->textCursor().insertText("plain"_s);
        edit()->textCursor().insertText("bold"_s, bold());
        press("AC");
        QCOMPARE(pastedElsewhere("text/rtf"_s),
                 documentHead() + firstParagraph() + run("plain") + "{\\f0\\fs24\\b1 bold}}");
    }

    void copiedTextHasEveryType()
    {
        edit()->setPlainText("text"_s);
        press("AC");
        const QList<QByteArray> types = pastedElsewhere("TARGETS"_s).split('\n');
        const QByteArray rtf = documentHead() + firstParagraph() + run("text") + "}";
        for (const QString& type : ORV::rtfMimeTypes()) {
            QVERIFY2(types.contains(type.toLatin1()), qPrintable(type));
            QCOMPARE(pastedElsewhere(type), rtf);
        }
        QVERIFY(types.contains(ORV::OrvellineMarkupRtfMimeType));
        QVERIFY(types.contains("text/html"));
        QCOMPARE(pastedElsewhere("UTF8_STRING"_s), "text"_b);
        // The best form stands in front of the others.
        QVERIFY(types.indexOf("text/rtf") < types.indexOf("text/html"));
        QVERIFY(types.indexOf("text/html") < types.indexOf("text/plain"));

        edit()->clear();
        edit()->setPlainText("cut"_s);
        press("AX");
        QCOMPARE(content(), QString());
        QCOMPARE(pastedElsewhere("text/rtf"_s), documentHead() + firstParagraph() + run("cut") + "}");
    }

    /*! Also in another window of the same program. */
    void copiedRichTextIsWholeElsewhere()
    {
        setBody(richBody());
        press("AC");
        const Reading reading = rtftest::import(pastedElsewhere("text/rtf"_s));
        QCOMPARE(reading.status, 0);
        QCOMPARE(describe(*reading.document), richContent());
        cleanup();
        init();
        press("V");
        QCOMPARE(content(), storedContent());
    }

    ORV_ROWS(rtfFromElsewhereIsPasted)
    {
        const Rows add([this](const QString& type, const QByteArray& rtf, const QString& pasted) {
            const CopiedElsewhere copied(type, rtf);
            QVERIFY(copied.isThere());
            press("V");
            QCOMPARE(content(), pasted);
        });
        for (const QString& type : ORV::rtfMimeTypes())
            add(type.toLatin1(), type, richRtf(), richContent());
        add("own flavour", QLatin1String(ORV::OrvellineMarkupRtfMimeType), richRtf(), storedContent());
        // X hands on what is longer than a few megabytes piece by piece.
        const QByteArray skipped = "{\\*\\unknown " + QByteArray(10 << 20, 'x') + "}";
        add("many pieces", "text/rtf", "{\\rtf1\\ansi begin" + skipped + " end{}}", "begin end");
    }

private:
    /*! Presses \a keys together with the control key. */
    void press(const char* keys)
    {
        for (const char* key = keys; *key != '\0'; ++key)
            QTest::keyClick(edit(), *key, Qt::ControlModifier);
    }
};

static int runTestEditorClipboard(int argc, char** argv)
{
    XServer server;
    if (!server.start())
        return registry::skip("Xvfb is not installed, or does not start");
    qputenv("QT_QPA_PLATFORM", "xcb");
    return registry::runWith<TestEditorClipboard, QApplication>("xclip", argc, argv);
}

ORV_TEST_MAIN("editor_clipboard", runTestEditorClipboard, TestEditorClipboard)
#include "clipboard.moc"
