#include "Links.h"
#include "LinkDialog.h"
#include "MarkupHighlighter.h"
#include "editorhelpers.h"

using namespace editortest;
using namespace rtftest;

namespace {

/*! Text with a link to \a target from the character 5 to 9. */
QByteArray linkTo(const QByteArray& target)
{
    return "Text {\\field{\\*\\fldinst HYPERLINK \"" + target + "\"}{\\fldrslt link}} end";
}

/*! The text of \a document, its links in brackets before their targets. */
QString linksOf(const QTextDocument& document)
{
    const QString text = document.toPlainText();
    QString result;
    for (int position = 0; position < text.size(); ++position) {
        const Link link = Links::at(document, position);
        if (link.length == 0) {
            result += text.at(position);
        } else {
            result += "[%1](%2)"_s.arg(text.mid(link.position, link.length), link.target);
            position = link.position + link.length - 1;
        }
    }
    return result;
}

} // namespace

/*! Links in the editor window. */
class TestEditorLinks : public EditorTest {
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
        EditorTest::init();
        m_opened.clear();
    }

    /*! What is made of the links of a file by some steps, with a selection to begin with. */
    ORV_ROWS(links)
    {
        const Rows add([this](const QByteArray& body, int from, int to, const std::function<void()>& steps,
                              const QString& links) {
            open(body);
            select(from, to);
            steps();
            QCOMPARE(linksOf(*document()), links);
        });
        const auto setTarget = [this] { editLink(QString(), "x"_s); };
        const auto setBoth = [this] { editLink("other"_s, "new"_s); };
        const auto setBothAndTarget = [=] {
            setBoth();
            setTarget();
        };
        add("selection", "some words", 5, 10, setTarget, "some [words](x)");
        // The dialog has one line for the text.
        add("two paragraphs", "one\\par two", 0, 7, setTarget, "[one](x)\n[two](x)");
        add("new text", "ab", 1, 1, setBoth, "a[other](new)b");
        add("new text, edited again", "ab", 1, 1, setBothAndTarget, "a[other](x)b");
        add("whole link", linkTo("old"), 7, 7, setBoth, "Text [other](new) end");
        add(
            "text behind a link", linkTo("x"), 9, 9, [this] { type("ab"); }, "Text [link](x)ab end");
        const auto removed = [this](const std::function<void()>& remove) {
            return [this, remove] {
                select(0);
                QVERIFY(!action("Remove link")->isEnabled());
                select(9);
                remove();
                const QTextCharFormat format = formatOf(*document(), "link"_s);
                QVERIFY(!format.hasProperty(QTextFormat::IsAnchor));
                QVERIFY(!format.hasProperty(QTextFormat::AnchorHref));
            };
        };
        add("removed", linkTo("x"), 9, 9, removed([this] { trigger("Remove link"); }), "Text link end");
        add("empty target", linkTo("x"), 9, 9, removed([this] { editLink(QString(), QString()); }),
            "Text link end");
    }

    void linkIsSaved()
    {
        edit()->setPlainText("some words"_s);
        select(5, 10);
        editLink(QString(), "https://example.org/a b"_s);
        QCOMPARE(saved(),
                 documentHead() + firstParagraph() + run("some ")
                     + "{\\field{\\*\\fldinst HYPERLINK \"https://example.org/a b\"}{\\fldrslt\\f0\\fs24 "
                       "words}}}");
    }

    /*! By the view; the document stays as it is. */
    void linksAreShownAsLinks()
    {
        open(linkTo("x"));
        QVERIFY(!formatOf(*document(), "link"_s).hasProperty(QTextFormat::ForegroundBrush));
        QTRY_COMPARE(shownFormats().size(), 1);
        QCOMPARE(shownFormats().first().start, 5);
        QCOMPARE(shownFormats().first().length, 4);
        QCOMPARE(shownFormats().first().format.foreground(), QGuiApplication::palette().link());
        QVERIFY(shownFormats().first().format.fontUnderline());
    }

    void statusShowsTheTarget()
    {
        open(linkTo("https://example.org/\\u252 ?"));
        click(6, Qt::NoModifier);
        QCOMPARE(message(), "https://example.org/%C3%BC"_s);
        click(1, Qt::NoModifier);
        QCOMPARE(message(), QString());
    }

    ORV_ROWS(controlClickOpens)
    {
        const Rows add([this](const QString& target, const QString& opened) {
            open(linkTo(target.toLatin1()));
            click(6, Qt::NoModifier);
            QCOMPARE(m_opened, QStringList());
            click(6, Qt::ControlModifier);
            QCOMPARE(m_opened.join(QLatin1Char(' ')), opened);
            if (opened.isEmpty())
                QCOMPARE(message(), "Only web and mail addresses are opened: "_s + target);
        });
        add("http", "http://example.org/", "http://example.org/");
        add("https", "https://example.org/", "https://example.org/");
        add("upper case", "HTTPS://example.org/", "https://example.org/");
        add("mail", "mailto:a@example.org", "mailto:a@example.org");
        for (const char* other : {"file:///bin/sh", "ftp://example.org/", "javascript:a()", "/bin/sh"})
            add(other, other, "");
    }

    /*! Nor does one behind the end of a line that ends with a link. */
    void controlClickBesideALinkDoesNotOpen()
    {
        open(linkTo("https://example.org/").chopped(4));
        click(1, Qt::ControlModifier);
        click(9, Qt::ControlModifier);
        QCOMPARE(m_opened, QStringList());
        click(8, Qt::ControlModifier);
        QCOMPARE(m_opened, QStringList("https://example.org/"_s));
    }

private:
    /*! Has the user enter \a text, unless it is null, and \a target in the dialog of a link. */
    void editLink(const QString& text, const QString& target)
    {
        trigger<LinkDialog>("Link…", [=](LinkDialog* dialog) {
            if (!text.isNull())
                dialog->findChild<QLineEdit*>("text"_s)->setText(text);
            dialog->findChild<QLineEdit*>("target"_s)->setText(target);
            dialog->accept();
        });
    }

    /*! Clicks on the character at \a position. */
    void click(int position, Qt::KeyboardModifier modifier)
    {
        QWidget* const viewport = edit()->viewport();
        const QPoint place = placeOf(position);
        QCursor::setPos(viewport->mapToGlobal(place));
        QTest::mouseMove(viewport, place);
        QTest::mouseClick(viewport, Qt::LeftButton, modifier, place);
    }

    QStringList m_opened;
};

ORV_TEST("editor_links", TestEditorLinks, QApplication)
#include "links.moc"
