#include "ORVFragments.h"
#include "testsupport.h"

namespace {

/*! The document's runs, paragraph by paragraph: text, and whether it is bold. */
QString runs(const QTextDocument& document)
{
    QString result;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (const QTextFragment& run : rtftest::fragmentsOf(block)) {
            const bool isBold = run.charFormat().fontWeight() == QFont::Bold;
            result += run.text() + QLatin1String(isBold ? "! " : " ");
        }
        result += QLatin1Char('|');
    }
    return result;
}

void embolden(QTextCharFormat* format)
{
    format->setFontWeight(QFont::Bold);
}

} // namespace

/*! The runs of text of a document. */
class TestFragments : public QObject {
    Q_OBJECT

private slots:
    // One step of undo, if anything has changed.
    ORV_ROWS(formatsBetweenPositions)
    {
        const Rows add([](int from, int to, const QString& result) {
            QTextDocument document("abc\ndef"_s);
            document.clearUndoRedoStacks();
            ORVFragments::changeFormats(&document, from, to, embolden);
            QCOMPARE(runs(document), result);
            document.undo();
            QCOMPARE(runs(document), "abc |def |"_s);
            QVERIFY(!document.isUndoAvailable());
        });
        add("all", 0, 8, "abc! |def! |");
        add("nothing", 2, 2, "abc |def |");
        add("negative", 3, 1, "abc |def |");
        add("inside of a run", 1, 2, "a b! c |def |");
        add("across a paragraph's end", 2, 5, "ab c! |d! ef |");
        add("of two runs", 1, 6, "a bc! |de! f |");
        add("a paragraph's end only", 3, 4, "abc |def |");
        add("beyond the end", 6, 100, "abc |de f! |");
        add("behind the end", 100, 200, "abc |def |");
    }

    void eachFormatIsItsOwn()
    {
        const rtftest::Story story = rtftest::Story().add("plain").add("bold", rtftest::bold()).add("more");
        // The runs become one while they are changed.
        ORVFragments::changeFormats(story.document(), 0, 100, [](QTextCharFormat* format) {
            format->setFontItalic(format->fontWeight() != QFont::Bold);
            format->clearProperty(QTextFormat::FontWeight);
        });
        QList<bool> italic;
        for (const QTextFragment& run : rtftest::fragmentsOf(*story.document())) {
            QVERIFY(!run.charFormat().hasProperty(QTextFormat::FontWeight));
            italic.append(run.charFormat().fontItalic());
        }
        QCOMPARE(italic, (QList<bool>{true, false, true}));
    }

    void equalFormatIsNoChange()
    {
        QTextDocument document("abc"_s);
        document.clearUndoRedoStacks();
        int calls = 0;
        ORVFragments::changeFormats(&document, 0, 3, [&calls](QTextCharFormat*) { ++calls; });
        QCOMPARE(calls, 1);
        QVERIFY(!document.isUndoAvailable());
    }

    void pictureNamesAreThereOnce()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        QCOMPARE(ORVFragments::pictureNames(&document), QStringList());
        cursor.insertImage("first"_s);
        cursor.insertText("text"_s, QTextCharFormat());
        cursor.insertImage("second"_s);
        cursor.insertBlock();
        cursor.insertImage("first"_s);
        QCOMPARE(ORVFragments::pictureNames(&document), (QStringList{"first"_s, "second"_s}));
    }

    void nullDocument()
    {
        ORVFragments::changeFormats(nullptr, 0, 1, embolden);
        QCOMPARE(ORVFragments::pictureNames(nullptr), QStringList());
    }
};

ORV_TEST("fragments", TestFragments, QGuiApplication)
#include "fragments.moc"
