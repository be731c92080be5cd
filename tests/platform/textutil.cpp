#include "ORVTextUtil.h"
#include "testpaths.h"
#include "testsupport.h"

using namespace rtftest;

namespace {

// Installs tests/data/fonts/<file>.ttf for this process.
bool addFont(const char* file)
{
    const QString folder = QString::fromUtf8(TEST_DATA_DIR "/fonts/");
    return QFontDatabase::addApplicationFont(folder + QLatin1String(file) + ".ttf"_s) >= 0;
}

/*! Trims \a document between two positions, up to its end by default, and returns what is selected then. */
QTextCursor trimmed(QTextDocument* document, int anchor = 0, int position = -1)
{
    QTextCursor cursor(document);
    cursor.setPosition(anchor);
    cursor.setPosition(position < 0 ? document->characterCount() - 1 : position, QTextCursor::KeepAnchor);
    ORVTextUtil::trim(cursor);
    return cursor;
}

const QTextCharFormat italic = charFormat({{QTextFormat::FontItalic, true}});
const QTextBlockFormat rightAligned = blockFormat({{QTextFormat::BlockAlignment, int(Qt::AlignRight)}});

} // namespace

class TestTextUtil : public QObject {
    Q_OBJECT

private slots:
    // Of the families that are not made for the tests, the package fonts-liberation has those that are
    // installed.
    void initTestCase()
    {
        const QStringList families = compat::fontFamilies();
        for (const char* family : {"Liberation Sans", "Liberation Serif", "Liberation Mono"})
            QVERIFY2(families.contains(QLatin1String(family)), family);
        for (const char* family : {"Arial", "Times New Roman", "Courier New"})
            QVERIFY2(!families.contains(QLatin1String(family)), family);
        for (const char* file : {"QuibbleBrick", "QuibbleFeather", "QuibbleRangeBold", "QuibbleRangeLight",
                                 "QuibbleRangeMedium", "QuibbleRangeThin", "QuibbleTwinOne"})
            QVERIFY2(addFont(file), file);
    }

    ORV_ROWS(bestFontFamily)
    {
        const Rows add([](const QString& name, const QString& family) {
            QCOMPARE(ORVTextUtil::findBestFontFamily(name), family);
            // From the second time on the answer may come from a cache.
            QCOMPARE(ORVTextUtil::findBestFontFamily(name), family);
        });
        add("installed", "Liberation Sans", "Liberation Sans");
        add("installed, in other letters", "LIBERATION sans", "Liberation Sans");
        add("sans serif of equal metrics", "Arial", "Liberation Sans");
        add("equal metrics, in other letters", "arial", "Liberation Sans");
        add("serif of equal metrics", "Times New Roman", "Liberation Serif");
        add("typewriter of equal metrics", "Courier New", "Liberation Mono");
        add("added by the application", "quibble brick", "Quibble Brick");
        add("beginning of a family", "Liberation", "");
        add("unknown", "Quibble Sans", "");
        add("empty", "", "");
        add("not ASCII", QString(QChar(0xff2d)) + QChar(0xd800), "");
    }

    void substitutesOfFontFamilies()
    {
        const QString missing = "Quibble Serif"_s;
        QCOMPARE(ORVTextUtil::findBestFontFamily(missing), QString());
        QFont::insertSubstitutions(missing, {"Quibble Sans"_s, "liberation serif"_s, "Liberation Mono"_s});
        QCOMPARE(ORVTextUtil::findBestFontFamily(missing), "Liberation Serif"_s);
        QFont::removeSubstitutions(missing);
        QCOMPARE(ORVTextUtil::findBestFontFamily(missing), QString());

        const QString installed = "Liberation Sans"_s;
        QFont::insertSubstitution(installed, "Liberation Mono"_s);
        QCOMPARE(ORVTextUtil::findBestFontFamily(installed), installed);
        QFont::removeSubstitutions(installed);
    }

    void bestFontFamilyFromTwoFoundries()
    {
        const QString name = "Quibble Twin"_s;
        QCOMPARE(ORVTextUtil::findBestFontFamily(name.toLower()), name);
        QVERIFY(addFont("QuibbleTwinTwo"));
        // Qt now lists the family under two names.
        QVERIFY(!compat::fontFamilies().contains(name));
        QCOMPARE(ORVTextUtil::findBestFontFamily(name.toLower()), name);
    }

    // Being asked for a family before it is there does not hide it later.
    void bestFontFamilyOnceItIsAdded()
    {
        const QString name = "Quibble Heavy"_s;
        QCOMPARE(ORVTextUtil::findBestFontFamily(name), QString());
        QCOMPARE(ORVTextUtil::defaultFontWeight(name, QFont::Normal), int(QFont::Normal));
        QVERIFY(QFontDatabase::addApplicationFont(QString::fromUtf8(TEST_DATA_DIR "/QuibbleHeavy.ttf")) >= 0);
        QCOMPARE(ORVTextUtil::findBestFontFamily(name), name);
        QCOMPARE(ORVTextUtil::defaultFontWeight(name, QFont::Normal), int(QFont::Bold));
    }

    void bestFontFamilyFromManyThreads()
    {
        std::vector<std::thread> threads;
        std::vector<QStringList> families(4);
        for (QStringList& own : families) {
            threads.emplace_back([&own] {
                for (int i = 0; i < 100; ++i)
                    own << ORVTextUtil::findBestFontFamily("Arial"_s)
                        << ORVTextUtil::findBestFontFamily("Courier New"_s)
                        << QString::number(
                               ORVTextUtil::defaultFontWeight("Quibble Feather"_s, QFont::Normal));
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        QStringList expected;
        for (int i = 0; i < 100; ++i)
            expected << "Liberation Sans"_s
                     << "Liberation Mono"_s << QString::number(QFont::Light);
        for (const QStringList& own : families)
            QCOMPARE(own, expected);
    }

    // More names than are kept; the ones asked for first are still answered rightly afterwards.
    void bestFontFamilyOfManyNames()
    {
        for (int i = 0; i < 1500; ++i)
            QCOMPARE(ORVTextUtil::findBestFontFamily("Quibble %1"_s.arg(i)), QString());
        QCOMPARE(ORVTextUtil::findBestFontFamily("Arial"_s), "Liberation Sans"_s);
    }

    ORV_ROWS(fontWeight)
    {
        const Rows add([](const QString& family, int fallback, int weight) {
            QCOMPARE(ORVTextUtil::defaultFontWeight(family, fallback), weight);
            QCOMPARE(ORVTextUtil::defaultFontWeight(family, fallback), weight);
        });
        const int light = QFont::Light;
        const int normal = QFont::Normal;
        const int demiBold = QFont::DemiBold;
        const int bold = QFont::Bold;
        add("family with the weight", "Liberation Sans", normal, normal);
        add("family with another weight asked for", "Liberation Sans", bold, bold);
        add("light only", "Quibble Feather", normal, light);
        add("light only, in other letters", "QUIBBLE feather", normal, light);
        add("bold only", "Quibble Brick", normal, bold);
        add("lighter and heavier, the heaviest of the lighter", "Quibble Range", normal, light);
        add("below bold", "Quibble Range", demiBold, int(QFont::Medium));
        add("above all", "Quibble Range", int(QFont::Black), bold);
        add("below all, the lightest", "Liberation Sans", light, normal);
        add("not installed", "Quibble Sans", normal, normal);
        add("not installed, odd weight", "Quibble Sans", 33, 33);
        add("no family", "", bold, bold);
    }

    ORV_ROWS(trimRemovesWhiteSpaceAtBothEnds)
    {
        const Rows add([](const QString& text, const QString& result) {
            QTextDocument document(text);
            document.clearUndoRedoStacks();
            const QTextCursor cursor = trimmed(&document);
            QCOMPARE(textOf(document), result);
            QCOMPARE(cursor.selection().toPlainText(), result);
            document.undo();
            QVERIFY(!document.isUndoAvailable());
            QCOMPARE(textOf(document), text);
        });
        add("nothing to remove", "a b", "a b");
        add("leading blanks", "   a b", "a b");
        add("trailing blanks", "a b   ", "a b");
        add("both ends", "  a  ", "a");
        add("tabs", "\ta\t", "a");
        add("empty paragraphs", "\n\na\n\n", "a");
        add("blank paragraphs", "  \n\t\n a \n \n  ", "a");
        add("paragraphs inside stay", " \na\n \nb\n ", "a\n \nb");
        add("no-break space and line separator", u8"\u00a0\u2028a\u2028\u00a0", "a");
        add("white space only", "  \n\t\n  ", "");
        add("empty document", "", "");
    }

    ORV_ROWS(trimChangesOnlyTheSelection)
    {
        const Rows add([](const QString& text, int anchor, int position, const QString& result,
                          const QString& selected) {
            QTextDocument document(text);
            const QTextCursor cursor = trimmed(&document, anchor, position);
            QCOMPARE(textOf(document), result);
            QCOMPARE(cursor.selectedText(), selected);
        });
        add("inside blanks", "  x  y  ", 4, 7, "  x y ", "y");
        add("backwards", "  x  y  ", 7, 4, "  x y ", "y");
        add("blanks only", "a    b", 2, 4, "a  b", "");
        add("paragraph end in front", "a\nb\nc", 1, 3, "ab\nc", "b");
        add("paragraph end behind", "a\nb\nc", 2, 4, "a\nbc", "b");
        add("no selection", "  a  ", 0, 0, "  a  ", "");
    }

    void trimOfNullCursor()
    {
        QTextCursor null;
        ORVTextUtil::trim(null);
        QVERIFY(null.isNull());
    }

    void trimKeepsCharacterFormats()
    {
        const Story story = Story().add("  ").add(" bold", bold()).add(" italic ", italic).add("  ");
        trimmed(story.document());
        const QList<QTextFragment> fragments = fragmentsOf(*story.document());
        QCOMPARE(fragments.size(), 2);
        QCOMPARE(fragments.at(0).text(), "bold"_s);
        QVERIFY(fragments.at(0).charFormat() == bold());
        QCOMPARE(fragments.at(1).text(), " italic"_s);
        QVERIFY(fragments.at(1).charFormat() == italic);
    }

    ORV_ROWS(trimKeepsParagraphs)
    {
        const Rows add([](const QByteArray& rtf, const QByteArray& result) {
            const Reading reading = readBody(rtf);
            trimmed(reading.document.data());
            QCOMPARE(documentLines(*reading.document), documentLines(*readBody(result).document));
        });
        add("formats of the first", "\\qr  \\par\\par\\pard\\ls7\\qc\\i  text", "\\ls7\\qc\\i text");
        add("formats of the last", "first\\par\\qr\\i last \\par\\pard\\plain   \\par",
            "first\\par\\qr\\i last");
    }

    // The selection begins inside a paragraph, which takes in what follows.
    void trimKeepsFormatOfParagraphThatIsEntered()
    {
        QTextDocument document;
        QTextCursor writer(&document);
        writer.setBlockFormat(rightAligned);
        writer.insertText("a "_s);
        writer.insertBlock(QTextBlockFormat(), italic);
        writer.insertText(" b"_s);
        trimmed(&document, 1);
        QCOMPARE(textOf(document), "ab"_s);
        QCOMPARE(int(document.begin().blockFormat().alignment()), int(Qt::AlignRight));
        QVERIFY(document.begin().charFormat() == QTextCharFormat());
    }

    void trimKeepsTables()
    {
        QTextDocument document("  \n \n \n "_s);
        QTextTable* table = QTextCursor(document.findBlockByNumber(2)).insertTable(1, 2);
        table->cellAt(0, 0).firstCursorPosition().insertText(" a"_s);
        table->cellAt(0, 1).firstCursorPosition().insertText("b "_s);
        trimmed(&document);
        QCOMPARE(contentOf(document), "|{2:  a, b }|"_s);
    }

    void trimKeepsPictures()
    {
        QTextDocument document("  "_s);
        QTextCursor writer(&document);
        writer.setPosition(1);
        writer.insertImage("first"_s);
        writer.insertText(" x "_s);
        writer.insertImage("second"_s);
        trimmed(&document);
        const QString picture = QChar(QChar::ObjectReplacementCharacter);
        QCOMPARE(textOf(document), picture + " x "_s + picture);
    }

    ORV_ROWS(leadingSpaces)
    {
        const Rows add([](const QString& text, const QString& trimmed) {
            QCOMPARE(ORVTextUtil::trimLeadingSpaces(text), trimmed);
        });
        add("none", "a b ", "a b ");
        add("blanks", "   a b ", "a b ");
        add("other white space", "\t\n"_s + QChar(0xa0) + "a"_s, "a");
        add("white space only", " \t ", "");
        add("empty", "", "");
    }
};

ORV_TEST("textutil", TestTextUtil, QGuiApplication)
#include "textutil.moc"
