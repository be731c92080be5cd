#include "ORV.h"
#include "ORVTextRtf.h"
#include "QtFontCompat_p.h"
#include "editorhelpers.h"
#include "rtfstory.h"

#include <QtCore/QProcess>
#include <QtGui/QClipboard>
#include <QtWidgets/QApplication>

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
        m_process.start(QStringLiteral("Xvfb"),
                        {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-terminate"),
                         QStringLiteral("-nolisten"), QStringLiteral("tcp")});
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
    return {QStringLiteral("-selection"), QStringLiteral("clipboard"), direction, QStringLiteral("-t"), type};
}

/*! What another program gets that pastes \a type. */
QByteArray pastedElsewhere(const QString& type)
{
    QProcess xclip;
    xclip.start(QStringLiteral("xclip"), clipboardArguments(QStringLiteral("-o"), type));
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
        m_xclip.start(QStringLiteral("xclip"),
                      clipboardArguments(QStringLiteral("-i"), type) << QStringLiteral("-quiet"));
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
class TestEditorClipboard : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void copiedTextIsRtfElsewhere();
    void copiedTextHasEveryType();
    void copiedRichTextIsWholeElsewhere();
    void cutTextIsRtfElsewhere();
    void rtfFromElsewhereIsPasted_data();
    void rtfFromElsewhereIsPasted();
    void rtfOfManyPiecesIsPasted();
    void copyOfOneWindowIsPastedInAnother();

private:
    /*! Types \a keys with the control key into the text. */
    void type(const QString& keys);

    QScopedPointer<EditorWindow> m_window;
};

void TestEditorClipboard::init()
{
    m_window.reset(new EditorWindow);
    QFont font;
    compat::setFamily(font, QString::fromLatin1(DefaultFamily));
    font.setPointSizeF(DefaultPointSize);
    m_window->textEdit()->document()->setDefaultFont(font);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.data()));
}

void TestEditorClipboard::cleanup()
{
    // Without a question about changes.
    m_window->textEdit()->document()->setModified(false);
    m_window.reset();
}

void TestEditorClipboard::type(const QString& keys)
{
    for (QChar key : keys)
        QTest::keyClick(m_window->textEdit(), key.toLatin1(), Qt::ControlModifier);
}

void TestEditorClipboard::copiedTextIsRtfElsewhere()
{
    m_window->textEdit()->textCursor().insertText(QStringLiteral("plain"));
    m_window->textEdit()->textCursor().insertText(QStringLiteral("bold"), bold());
    type(QStringLiteral("AC"));
    QCOMPARE(pastedElsewhere(QStringLiteral("text/rtf")),
             documentHead() + firstParagraph() + run("plain") + "{\\f0\\fs24\\b1 bold}}");
}

void TestEditorClipboard::copiedTextHasEveryType()
{
    m_window->textEdit()->setPlainText(QStringLiteral("text"));
    type(QStringLiteral("AC"));
    const QList<QByteArray> types = pastedElsewhere(QStringLiteral("TARGETS")).split('\n');
    for (const QString& type : ORV::rtfMimeTypes()) {
        QVERIFY2(types.contains(type.toLatin1()), qPrintable(type));
        QCOMPARE(pastedElsewhere(type), documentHead() + firstParagraph() + run("text") + "}");
    }
    QVERIFY(types.contains(ORV::OrvellineMarkupRtfMimeType));
    QVERIFY(types.contains("text/html"));
    QCOMPARE(pastedElsewhere(QStringLiteral("UTF8_STRING")), QByteArray("text"));
    // The best form stands in front of the others.
    QVERIFY(types.indexOf("text/rtf") < types.indexOf("text/html"));
    QVERIFY(types.indexOf("text/html") < types.indexOf("text/plain"));
}

void TestEditorClipboard::copiedRichTextIsWholeElsewhere()
{
    QTextDocument* document = m_window->textEdit()->document();
    QVERIFY(ORVTextRtf::fromRtfData(richRtf(), document, nullptr));
    type(QStringLiteral("AC"));
    const Reading reading = rtftest::read(pastedElsewhere(QStringLiteral("text/rtf")));
    QCOMPARE(reading.status, 0);
    QCOMPARE(describe(*reading.document), richContent());
}

void TestEditorClipboard::cutTextIsRtfElsewhere()
{
    m_window->textEdit()->setPlainText(QStringLiteral("text"));
    type(QStringLiteral("AX"));
    QCOMPARE(contentOf(*m_window), QString());
    QCOMPARE(pastedElsewhere(QStringLiteral("text/rtf")),
             documentHead() + firstParagraph() + run("text") + "}");
}

void TestEditorClipboard::rtfFromElsewhereIsPasted_data()
{
    QTest::addColumn<QString>("type");
    for (const QString& type : ORV::rtfMimeTypes())
        QTest::newRow(qPrintable(type)) << type;
    QTest::newRow("own flavour") << QString::fromLatin1(ORV::OrvellineMarkupRtfMimeType);
}

void TestEditorClipboard::rtfFromElsewhereIsPasted()
{
    QFETCH(QString, type);
    const CopiedElsewhere copied(type, richRtf());
    QVERIFY(copied.isThere());
    this->type(QStringLiteral("V"));
    QCOMPARE(contentOf(*m_window), richContent());
}

/*! X hands on what is longer than a few megabytes piece by piece. */
void TestEditorClipboard::rtfOfManyPiecesIsPasted()
{
    const int megabyte = 1 << 20;
    const QByteArray skipped = "{\\*\\unknown " + QByteArray(10 * megabyte, 'x') + "}";
    const CopiedElsewhere copied(QStringLiteral("text/rtf"), "{\\rtf1\\ansi begin" + skipped + " end{}}");
    QVERIFY(copied.isThere());
    type(QStringLiteral("V"));
    QCOMPARE(contentOf(*m_window), QStringLiteral("begin end"));
}

void TestEditorClipboard::copyOfOneWindowIsPastedInAnother()
{
    QVERIFY(ORVTextRtf::fromRtfData(richRtf(), m_window->textEdit()->document(), nullptr));
    type(QStringLiteral("AC"));
    cleanup();
    init();
    type(QStringLiteral("V"));
    QCOMPARE(contentOf(*m_window), richContent());
}

int main(int argc, char** argv)
{
    XServer server;
    if (!server.start())
        qFatal("Xvfb does not start");
    qputenv("QT_QPA_PLATFORM", "xcb");
    QApplication application(argc, argv);
    TestEditorClipboard test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_editor_clipboard.moc"
