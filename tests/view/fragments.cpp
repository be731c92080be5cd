#include "ORVFragments.h"
#include "testsupport.h"

namespace {

/*! The document's runs, paragraph by paragraph: text, and whether it is bold. */
QString runs(const QTextDocument& document)
{
    QString result;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
            const bool isBold = it.fragment().charFormat().fontWeight() == QFont::Bold;
            result += it.fragment().text() + QLatin1String(isBold ? "! " : " ");
        }
        result += QLatin1Char('|');
    }
    return result;
}

void embolden(QTextCharFormat* format)
{
    format->setFontWeight(QFont::Bold);
}

void insertPicture(QTextCursor& cursor, const char* name)
{
    QTextImageFormat format;
    format.setName(QLatin1String(name));
    cursor.insertImage(format);
}

} // namespace

/*! The runs of text of a document. */
class TestFragments : public QObject {
    Q_OBJECT

private slots:
    void formatsBetweenPositions_data()
    {
        const Columns<int, int, QString> add("from", "to", "result");
        add("all", 0, 8, "abc! |def! |");
        add("nothing", 2, 2, "abc |def |");
        add("negative", 3, 1, "abc |def |");
        add("inside of a run", 1, 2, "a b! c |def |");
        add("across a paragraph's end", 2, 5, "ab c! |d! ef |");
        add("a paragraph's end only", 3, 4, "abc |def |");
        add("beyond the end", 6, 100, "abc |de f! |");
        add("behind the end", 100, 200, "abc |def |");
    }

    void formatsBetweenPositions()
    {
        FETCH(int, from, int, to, QString, result);
        QTextDocument document(QString::fromLatin1("abc\ndef"));

        ORVFragments::changeFormats(&document, from, to, embolden);

        QCOMPARE(runs(document), result);
    }

    void eachFormatIsItsOwn()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        QTextCharFormat bold;
        bold.setFontWeight(QFont::Bold);
        cursor.insertText(QString::fromLatin1("plain"), QTextCharFormat());
        cursor.insertText(QString::fromLatin1("bold"), bold);
        cursor.insertText(QString::fromLatin1("more"), QTextCharFormat());

        // The runs become one while they are changed.
        ORVFragments::changeFormats(&document, 0, document.characterCount(), [](QTextCharFormat* format) {
            format->setFontItalic(format->fontWeight() != QFont::Bold);
            format->clearProperty(QTextFormat::FontWeight);
        });

        QList<bool> italic;
        for (QTextBlock::iterator it = document.begin().begin(); !it.atEnd(); ++it) {
            QVERIFY(!it.fragment().charFormat().hasProperty(QTextFormat::FontWeight));
            italic.append(it.fragment().charFormat().fontItalic());
        }
        QCOMPARE(italic, (QList<bool>{true, false, true}));
    }

    void changeIsOneStepOfUndo()
    {
        QTextDocument document(QString::fromLatin1("abc\ndef"));
        document.clearUndoRedoStacks();
        ORVFragments::changeFormats(&document, 1, 6, embolden);
        QCOMPARE(runs(document), QString::fromLatin1("a bc! |de! f |"));

        document.undo();

        QCOMPARE(runs(document), QString::fromLatin1("abc |def |"));
        QVERIFY(!document.isUndoAvailable());
    }

    void equalFormatIsNoChange()
    {
        QTextDocument document(QString::fromLatin1("abc"));
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

        insertPicture(cursor, "first");
        cursor.insertText(QString::fromLatin1("text"), QTextCharFormat());
        insertPicture(cursor, "second");
        cursor.insertBlock();
        insertPicture(cursor, "first");

        QCOMPARE(ORVFragments::pictureNames(&document),
                 (QStringList{QString::fromLatin1("first"), QString::fromLatin1("second")}));
    }

    void nullDocument()
    {
        ORVFragments::changeFormats(nullptr, 0, 1, embolden);
        QCOMPARE(ORVFragments::pictureNames(nullptr), QStringList());
    }
};

ORV_TEST("fragments", TestFragments, QGuiApplication)
#include "fragments.moc"
