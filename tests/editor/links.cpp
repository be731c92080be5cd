#include "LinkDialog.h"
#include "Links.h"
#include "MarkupHighlighter.h"
#include "editorhelpers.h"
#include "rtfstory.h"

#include <QtGui/QDesktopServices>
#include <QtGui/QTextLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QStatusBar>

using namespace editortest;
using namespace rtftest;

namespace {

DialogAnswer<LinkDialog>* newAnswer(const QString& text, const QString& target)
{
    return new DialogAnswer<LinkDialog>([=](LinkDialog* dialog) {
        if (!text.isNull())
            dialog->findChild<QLineEdit*>(QStringLiteral("text"))->setText(text);
        dialog->findChild<QLineEdit*>(QStringLiteral("target"))->setText(target);
        dialog->accept();
    });
}

QByteArray linkField(const QByteArray& target, const QByteArray& text)
{
    return "{\\field{\\*\\fldinst HYPERLINK \"" + target + "\"}{\\fldrslt\\f0\\fs24 " + text + "}}";
}

/*! RTF with a link to \a target from the character 5 to 9. */
QByteArray rtfWithLink(const QByteArray& target)
{
    return "{\\rtf1\\ansi Text {\\field{\\*\\fldinst HYPERLINK \"" + target + "\"}{\\fldrslt link}} end{}}";
}

} // namespace

/*! Links in the editor window. */
class TestEditorLinks : public QObject {
    Q_OBJECT

public slots:
    void openAddress(const QUrl& address) { m_opened << address.toString(); }

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void selectionBecomesALink();
    void linkIsInserted();
    void linkIsEditedAsAWhole();
    void selectionOfTwoParagraphsStaysWhatItIs();
    void linkIsRemoved_data();
    void linkIsRemoved();
    void textTypedBehindALinkIsNoPartOfIt();

    void linksAreShownAsLinks();
    void statusShowsTheTarget();
    void controlClickOpens_data();
    void controlClickOpens();
    void clickDoesNotOpen();
    void controlClickBesideALinkDoesNotOpen();

private:
    QTextDocument* document() const { return m_window->textEdit()->document(); }
    QString message() const { return m_window->statusBar()->currentMessage(); }
    void editLink(const QString& text, const QString& target);
    void click(int position, Qt::KeyboardModifier modifier);

    std::unique_ptr<EditorWindow> m_window;
    QStringList m_opened;
};

void TestEditorLinks::initTestCase()
{
    for (const char* scheme : {"http", "https", "mailto", "file", "ftp", "javascript"})
        QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "openAddress");
}

void TestEditorLinks::init()
{
    m_window = shownWindow();
    m_opened.clear();
}

void TestEditorLinks::cleanup()
{
    m_window.reset();
}

void TestEditorLinks::editLink(const QString& text, const QString& target)
{
    const std::unique_ptr<DialogAnswer<LinkDialog>> answer(newAnswer(text, target));
    actionOf(*m_window, "Link…")->trigger();
    QVERIFY(answer->isGiven());
}

/*! Clicks on the character at \a position. */
void TestEditorLinks::click(int position, Qt::KeyboardModifier modifier)
{
    QWidget* const viewport = m_window->textEdit()->viewport();
    const QPoint place = placeOf(*m_window, position);
    QCursor::setPos(viewport->mapToGlobal(place));
    QTest::mouseMove(viewport, place);
    QTest::mouseClick(viewport, Qt::LeftButton, modifier, place);
}

void TestEditorLinks::selectionBecomesALink()
{
    m_window->textEdit()->setPlainText(QStringLiteral("some words"));
    select(*m_window, 5, 10);
    editLink(QString(), QStringLiteral("https://example.org/a b"));
    QCOMPARE(savedRtf(*m_window),
             documentHead() + firstParagraph() + run("some ") + linkField("https://example.org/a b", "words")
                 + "}");
}

void TestEditorLinks::linkIsInserted()
{
    m_window->textEdit()->setPlainText(QStringLiteral("ab"));
    select(*m_window, 1, 1);
    editLink(QStringLiteral("new"), QStringLiteral("x"));
    editLink(QString(), QStringLiteral("y"));
    QCOMPARE(document()->toPlainText(), QStringLiteral("anewb"));
    QCOMPARE(Links::at(*document(), 2).target, QStringLiteral("y"));
    QCOMPARE(Links::at(*document(), 0).length, 0);
    QCOMPARE(Links::at(*document(), 4).length, 0);
}

void TestEditorLinks::linkIsEditedAsAWhole()
{
    QVERIFY(openRtf(*m_window, rtfWithLink("old")));
    select(*m_window, 7, 7);
    editLink(QStringLiteral("other"), QStringLiteral("new"));
    QCOMPARE(document()->toPlainText(), QStringLiteral("Text other end"));
    const Link link = Links::at(*document(), 5);
    QCOMPARE(link.target, QStringLiteral("new"));
    QCOMPARE(link.position, 5);
    QCOMPARE(link.length, 5);
}

/*! The dialog has one line for the text. */
void TestEditorLinks::selectionOfTwoParagraphsStaysWhatItIs()
{
    m_window->textEdit()->setPlainText(QStringLiteral("one\ntwo"));
    select(*m_window, 0, 7);
    editLink(QString(), QStringLiteral("x"));
    QCOMPARE(document()->toPlainText(), QStringLiteral("one\ntwo"));
    QCOMPARE(Links::at(*document(), 0).length, 3);
    QCOMPARE(Links::at(*document(), 4).length, 3);
}

void TestEditorLinks::linkIsRemoved_data()
{
    QTest::addColumn<bool>("byDialog");
    QTest::newRow("action") << false;
    QTest::newRow("empty target") << true;
}

void TestEditorLinks::linkIsRemoved()
{
    QFETCH(bool, byDialog);
    QVERIFY(openRtf(*m_window, rtfWithLink("x")));
    select(*m_window, 0, 0);
    QVERIFY(!actionOf(*m_window, "Remove link")->isEnabled());
    select(*m_window, 9, 9);
    if (byDialog)
        editLink(QString(), QString());
    else
        actionOf(*m_window, "Remove link")->trigger();
    QCOMPARE(document()->toPlainText(), QStringLiteral("Text link end"));
    const QTextCharFormat format = formatOf(*document(), QStringLiteral("link"));
    QVERIFY(!format.hasProperty(QTextFormat::IsAnchor));
    QVERIFY(!format.hasProperty(QTextFormat::AnchorHref));
}

void TestEditorLinks::textTypedBehindALinkIsNoPartOfIt()
{
    QVERIFY(openRtf(*m_window, rtfWithLink("x")));
    select(*m_window, 9, 9);
    QTest::keyClicks(m_window->textEdit(), QStringLiteral("ab"));
    QCOMPARE(document()->toPlainText(), QStringLiteral("Text linkab end"));
    QCOMPARE(Links::at(*document(), 5).length, 4);
}

/*! By the view; the document stays as it is. */
void TestEditorLinks::linksAreShownAsLinks()
{
    QVERIFY(openRtf(*m_window, rtfWithLink("x")));
    QVERIFY(!formatOf(*document(), QStringLiteral("link")).hasProperty(QTextFormat::ForegroundBrush));
    const auto shown = [this] { return document()->begin().layout()->formats(); };
    QTRY_COMPARE(shown().size(), 1);
    QCOMPARE(shown().first().start, 5);
    QCOMPARE(shown().first().length, 4);
    QCOMPARE(shown().first().format.foreground(), QGuiApplication::palette().link());
    QVERIFY(shown().first().format.fontUnderline());
}

void TestEditorLinks::statusShowsTheTarget()
{
    QVERIFY(openRtf(*m_window, rtfWithLink("https://example.org/\\u252 ?")));
    click(6, Qt::NoModifier);
    QCOMPARE(message(), QStringLiteral("https://example.org/%C3%BC"));
    click(1, Qt::NoModifier);
    QCOMPARE(message(), QString());
}

void TestEditorLinks::controlClickOpens_data()
{
    QTest::addColumn<QByteArray>("target");
    QTest::addColumn<bool>("opens");
    QTest::newRow("http") << QByteArray("http://example.org/") << true;
    QTest::newRow("https") << QByteArray("https://example.org/") << true;
    QTest::newRow("upper case") << QByteArray("HTTPS://example.org/") << true;
    QTest::newRow("mail") << QByteArray("mailto:a@example.org") << true;
    QTest::newRow("file") << QByteArray("file:///bin/sh") << false;
    QTest::newRow("ftp") << QByteArray("ftp://example.org/") << false;
    QTest::newRow("script") << QByteArray("javascript:a()") << false;
    QTest::newRow("path") << QByteArray("/bin/sh") << false;
}

void TestEditorLinks::controlClickOpens()
{
    QFETCH(QByteArray, target);
    QFETCH(bool, opens);
    QVERIFY(openRtf(*m_window, rtfWithLink(target)));
    click(6, Qt::ControlModifier);
    QCOMPARE(m_opened, opens ? QStringList(QUrl(QString::fromLatin1(target)).toString()) : QStringList());
    if (!opens)
        QCOMPARE(message(),
                 QStringLiteral("Only web and mail addresses are opened: ") + QString::fromLatin1(target));
}

void TestEditorLinks::clickDoesNotOpen()
{
    QVERIFY(openRtf(*m_window, rtfWithLink("https://example.org/")));
    click(6, Qt::NoModifier);
    QCOMPARE(m_opened, QStringList());
}

/*! Nor does one behind the end of a line that ends with a link. */
void TestEditorLinks::controlClickBesideALinkDoesNotOpen()
{
    QVERIFY(openRtf(*m_window,
                    "{\\rtf1\\ansi Text {\\field{\\*\\fldinst HYPERLINK "
                    "\"https://example.org/\"}{\\fldrslt link}}{}}"));
    click(1, Qt::ControlModifier);
    click(9, Qt::ControlModifier);
    QCOMPARE(m_opened, QStringList());
    click(8, Qt::ControlModifier);
    QCOMPARE(m_opened, QStringList(QStringLiteral("https://example.org/")));
}

QTEST_MAIN(TestEditorLinks)
#include "tst_editor_links.moc"
