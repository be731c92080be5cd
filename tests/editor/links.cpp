#include "Links.h"
#include "LinkDialog.h"
#include "MarkupHighlighter.h"
#include "editorhelpers.h"

using namespace editortest;
using namespace rtftest;

namespace {

DialogAnswer<LinkDialog>* newAnswer(const QString& text, const QString& target)
{
    return new DialogAnswer<LinkDialog>([=](LinkDialog* dialog) {
        if (!text.isNull())
            dialog->findChild<QLineEdit*>("text"_s)->setText(text);
        dialog->findChild<QLineEdit*>("target"_s)->setText(target);
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
    void initTestCase()
    {
        for (const char* scheme : {"http", "https", "mailto", "file", "ftp", "javascript"})
            QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "openAddress");
    }

    void init()
    {
        m_window = shownWindow();
        m_opened.clear();
    }

    void cleanup() { m_window.reset(); }

    void selectionBecomesALink()
    {
        m_window->textEdit()->setPlainText("some words"_s);
        select(*m_window, 5, 10);
        editLink(QString(), "https://example.org/a b"_s);
        QCOMPARE(savedRtf(*m_window),
                 documentHead() + firstParagraph() + run("some ")
                     + linkField("https://example.org/a b", "words") + "}");
    }

    void linkIsInserted()
    {
        m_window->textEdit()->setPlainText("ab"_s);
        select(*m_window, 1, 1);
        editLink("new"_s, "x"_s);
        editLink(QString(), "y"_s);
        QCOMPARE(document()->toPlainText(), "anewb"_s);
        QCOMPARE(Links::at(*document(), 2).target, "y"_s);
        QCOMPARE(Links::at(*document(), 0).length, 0);
        QCOMPARE(Links::at(*document(), 4).length, 0);
    }

    void linkIsEditedAsAWhole()
    {
        QVERIFY(openRtf(*m_window, rtfWithLink("old")));
        select(*m_window, 7, 7);
        editLink("other"_s, "new"_s);
        QCOMPARE(document()->toPlainText(), "Text other end"_s);
        const Link link = Links::at(*document(), 5);
        QCOMPARE(link.target, "new"_s);
        QCOMPARE(link.position, 5);
        QCOMPARE(link.length, 5);
    }

    /*! The dialog has one line for the text. */
    void selectionOfTwoParagraphsStaysWhatItIs()
    {
        m_window->textEdit()->setPlainText("one\ntwo"_s);
        select(*m_window, 0, 7);
        editLink(QString(), "x"_s);
        QCOMPARE(document()->toPlainText(), "one\ntwo"_s);
        QCOMPARE(Links::at(*document(), 0).length, 3);
        QCOMPARE(Links::at(*document(), 4).length, 3);
    }

    ORV_ROWS(linkIsRemoved)
    {
        const Rows add([this](bool byDialog) {
            QVERIFY(openRtf(*m_window, rtfWithLink("x")));
            select(*m_window, 0, 0);
            QVERIFY(!actionOf(*m_window, "Remove link")->isEnabled());
            select(*m_window, 9, 9);
            if (byDialog)
                editLink(QString(), QString());
            else
                actionOf(*m_window, "Remove link")->trigger();
            QCOMPARE(document()->toPlainText(), "Text link end"_s);
            const QTextCharFormat format = formatOf(*document(), "link"_s);
            QVERIFY(!format.hasProperty(QTextFormat::IsAnchor));
            QVERIFY(!format.hasProperty(QTextFormat::AnchorHref));
        });
        add("action", false);
        add("empty target", true);
    }

    void textTypedBehindALinkIsNoPartOfIt()
    {
        QVERIFY(openRtf(*m_window, rtfWithLink("x")));
        select(*m_window, 9, 9);
        QTest::keyClicks(m_window->textEdit(), "ab"_s);
        QCOMPARE(document()->toPlainText(), "Text linkab end"_s);
        QCOMPARE(Links::at(*document(), 5).length, 4);
    }

    /*! By the view; the document stays as it is. */
    void linksAreShownAsLinks()
    {
        QVERIFY(openRtf(*m_window, rtfWithLink("x")));
        QVERIFY(!formatOf(*document(), "link"_s).hasProperty(QTextFormat::ForegroundBrush));
        const auto shown = [this] { return document()->begin().layout()->formats(); };
        QTRY_COMPARE(shown().size(), 1);
        QCOMPARE(shown().first().start, 5);
        QCOMPARE(shown().first().length, 4);
        QCOMPARE(shown().first().format.foreground(), QGuiApplication::palette().link());
        QVERIFY(shown().first().format.fontUnderline());
    }

    void statusShowsTheTarget()
    {
        QVERIFY(openRtf(*m_window, rtfWithLink("https://example.org/\\u252 ?")));
        click(6, Qt::NoModifier);
        QCOMPARE(message(), "https://example.org/%C3%BC"_s);
        click(1, Qt::NoModifier);
        QCOMPARE(message(), QString());
    }

    ORV_ROWS(controlClickOpens)
    {
        const Rows add([this](const QByteArray& target, bool opens) {
            QVERIFY(openRtf(*m_window, rtfWithLink(target)));
            click(6, Qt::NoModifier);
            QCOMPARE(m_opened, QStringList());
            click(6, Qt::ControlModifier);
            QCOMPARE(m_opened,
                     opens ? QStringList(QUrl(QString::fromLatin1(target)).toString()) : QStringList());
            if (!opens)
                QCOMPARE(message(),
                         "Only web and mail addresses are opened: "_s + QString::fromLatin1(target));
        });
        add("http", "http://example.org/", true);
        add("https", "https://example.org/", true);
        add("upper case", "HTTPS://example.org/", true);
        add("mail", "mailto:a@example.org", true);
        add("file", "file:///bin/sh", false);
        add("ftp", "ftp://example.org/", false);
        add("script", "javascript:a()", false);
        add("path", "/bin/sh", false);
    }

    /*! Nor does one behind the end of a line that ends with a link. */
    void controlClickBesideALinkDoesNotOpen()
    {
        QVERIFY(openRtf(*m_window,
                        "{\\rtf1\\ansi Text {\\field{\\*\\fldinst HYPERLINK "
                        "\"https://example.org/\"}{\\fldrslt link}}{}}"));
        click(1, Qt::ControlModifier);
        click(9, Qt::ControlModifier);
        QCOMPARE(m_opened, QStringList());
        click(8, Qt::ControlModifier);
        QCOMPARE(m_opened, QStringList("https://example.org/"_s));
    }

private:
    QTextDocument* document() const { return m_window->textEdit()->document(); }
    QString message() const { return m_window->statusBar()->currentMessage(); }

    void editLink(const QString& text, const QString& target)
    {
        const std::unique_ptr<DialogAnswer<LinkDialog>> answer(newAnswer(text, target));
        actionOf(*m_window, "Link…")->trigger();
        QVERIFY(answer->isGiven());
    }

    /*! Clicks on the character at \a position. */
    void click(int position, Qt::KeyboardModifier modifier)
    {
        QWidget* const viewport = m_window->textEdit()->viewport();
        const QPoint place = placeOf(*m_window, position);
        QCursor::setPos(viewport->mapToGlobal(place));
        QTest::mouseMove(viewport, place);
        QTest::mouseClick(viewport, Qt::LeftButton, modifier, place);
    }

    std::unique_ptr<EditorWindow> m_window;
    QStringList m_opened;
};

ORV_TEST("editor_links", TestEditorLinks, QApplication)
#include "links.moc"
