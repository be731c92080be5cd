#include "ORVTextUtil.h"

#include "QtFontCompat_p.h"

#include <QFontDatabase>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>
#include <QtTest>

#include <thread>
#include <vector>

namespace {

// Installs tests/data/fonts/<file>.ttf for this process.
bool addFont(const char* file)
{
    const QString folder = QString::fromUtf8(TEST_DATA_DIR "/fonts/");
    return QFontDatabase::addApplicationFont(folder + QLatin1String(file) + QLatin1String(".ttf")) >= 0;
}

// The paragraphs of a document, "|" between them.
QString paragraphs(const QTextDocument& document)
{
    QStringList texts;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        texts << block.text();
    return texts.join(QLatin1Char('|'));
}

void insertParagraphs(QTextCursor* cursor, const QString& text)
{
    const QStringList texts = text.split(QLatin1Char('|'));
    for (int i = 0; i < texts.size(); ++i) {
        if (i > 0)
            cursor->insertBlock();
        cursor->insertText(texts.at(i));
    }
}

QTextCursor wholeDocument(QTextDocument* document)
{
    QTextCursor cursor(document);
    cursor.select(QTextCursor::Document);
    return cursor;
}

} // namespace

class TestTextUtil : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void bestFontFamily_data();
    void bestFontFamily();
    void bestFontFamilyTakesFirstInstalledSubstitute();
    void installedFamilyGoesBeforeSubstitutes();
    void bestFontFamilyFromTwoFoundries();
    void bestFontFamilyOnceItIsAdded();
    void bestFontFamilyFromManyThreads();
    void bestFontFamilyOfManyNames();

    void fontWeight_data();
    void fontWeight();

    void trimRemovesWhiteSpaceAtBothEnds_data();
    void trimRemovesWhiteSpaceAtBothEnds();
    void trimChangesOnlyTheSelection_data();
    void trimChangesOnlyTheSelection();
    void trimWithoutSelectionDoesNothing();
    void trimKeepsCharacterFormats();
    void trimKeepsFormatsOfTheFirstParagraph();
    void trimKeepsFormatOfParagraphThatIsEntered();
    void trimKeepsFormatsOfTheLastParagraph();
    void trimKeepsTables();
    void trimKeepsPictures();
    void trimIsOneUndoStep();

    void leadingSpaces_data();
    void leadingSpaces();
};

// Of the families that are not made for the tests, the package fonts-liberation has those that are installed.
void TestTextUtil::initTestCase()
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

void TestTextUtil::bestFontFamily_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("family");

    QTest::newRow("installed") << "Liberation Sans"
                               << "Liberation Sans";
    QTest::newRow("installed, in other letters") << "LIBERATION sans"
                                                 << "Liberation Sans";
    QTest::newRow("sans serif of equal metrics") << "Arial"
                                                 << "Liberation Sans";
    QTest::newRow("equal metrics, in other letters") << "arial"
                                                     << "Liberation Sans";
    QTest::newRow("serif of equal metrics") << "Times New Roman"
                                            << "Liberation Serif";
    QTest::newRow("typewriter of equal metrics") << "Courier New"
                                                 << "Liberation Mono";
    QTest::newRow("added by the application") << "quibble brick"
                                              << "Quibble Brick";
    QTest::newRow("beginning of a family") << "Liberation"
                                           << "";
    QTest::newRow("unknown") << "Quibble Sans"
                             << "";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("not ASCII") << QString(QChar(0xff2d)) + QChar(0xd800) << "";
}

void TestTextUtil::bestFontFamily()
{
    QFETCH(QString, name);
    QTEST(ORVTextUtil::findBestFontFamily(name), "family");
    // From the second time on the answer may come from a cache.
    QTEST(ORVTextUtil::findBestFontFamily(name), "family");
}

void TestTextUtil::bestFontFamilyTakesFirstInstalledSubstitute()
{
    const QString name = QLatin1String("Quibble Serif");
    QCOMPARE(ORVTextUtil::findBestFontFamily(name), QString());
    QFont::insertSubstitutions(name,
                               QStringList()
                                   << QLatin1String("Quibble Sans") << QLatin1String("liberation serif")
                                   << QLatin1String("Liberation Mono"));
    QCOMPARE(ORVTextUtil::findBestFontFamily(name), QString(QLatin1String("Liberation Serif")));
    QFont::removeSubstitutions(name);
    QCOMPARE(ORVTextUtil::findBestFontFamily(name), QString());
}

void TestTextUtil::installedFamilyGoesBeforeSubstitutes()
{
    const QString name = QLatin1String("Liberation Sans");
    QFont::insertSubstitution(name, QLatin1String("Liberation Mono"));
    QCOMPARE(ORVTextUtil::findBestFontFamily(name), name);
    QFont::removeSubstitutions(name);
}

void TestTextUtil::bestFontFamilyFromTwoFoundries()
{
    const QString name = QLatin1String("Quibble Twin");
    QCOMPARE(ORVTextUtil::findBestFontFamily(name.toLower()), name);
    QVERIFY(addFont("QuibbleTwinTwo"));
    // Qt now lists the family under two names.
    QVERIFY(!compat::fontFamilies().contains(name));
    QCOMPARE(ORVTextUtil::findBestFontFamily(name.toLower()), name);
}

// Being asked for a family before it is there does not hide it later.
void TestTextUtil::bestFontFamilyOnceItIsAdded()
{
    const QString name = QLatin1String("Quibble Heavy");
    QCOMPARE(ORVTextUtil::findBestFontFamily(name), QString());
    QCOMPARE(ORVTextUtil::defaultFontWeight(name, QFont::Normal), int(QFont::Normal));
    QVERIFY(QFontDatabase::addApplicationFont(QString::fromUtf8(TEST_DATA_DIR "/QuibbleHeavy.ttf")) >= 0);
    QCOMPARE(ORVTextUtil::findBestFontFamily(name), name);
    QCOMPARE(ORVTextUtil::defaultFontWeight(name, QFont::Normal), int(QFont::Bold));
}

void TestTextUtil::bestFontFamilyFromManyThreads()
{
    std::vector<std::thread> threads;
    std::vector<QStringList> families(4);
    for (QStringList& own : families) {
        threads.emplace_back([&own]() {
            for (int i = 0; i < 200; ++i) {
                own << ORVTextUtil::findBestFontFamily(QLatin1String(i % 2 ? "Arial" : "Courier New"))
                    << QString::number(
                           ORVTextUtil::defaultFontWeight(QLatin1String("Quibble Feather"), QFont::Normal));
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    QStringList expected;
    for (int i = 0; i < 200; ++i) {
        expected << QLatin1String(i % 2 ? "Liberation Sans" : "Liberation Mono")
                 << QString::number(int(QFont::Light));
    }
    for (const QStringList& own : families)
        QCOMPARE(own, expected);
}

// More names than are kept; the ones asked for first are still answered rightly afterwards.
void TestTextUtil::bestFontFamilyOfManyNames()
{
    for (int i = 0; i < 1500; ++i)
        QCOMPARE(ORVTextUtil::findBestFontFamily(QString::fromLatin1("Quibble %1").arg(i)), QString());
    QCOMPARE(ORVTextUtil::findBestFontFamily(QLatin1String("Arial")),
             QString(QLatin1String("Liberation Sans")));
}

void TestTextUtil::fontWeight_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<int>("fallback");
    QTest::addColumn<int>("weight");

    const int light = QFont::Light;
    const int normal = QFont::Normal;
    const int demiBold = QFont::DemiBold;
    const int bold = QFont::Bold;
    QTest::newRow("family with the weight") << "Liberation Sans" << normal << normal;
    QTest::newRow("family with another weight asked for") << "Liberation Sans" << bold << bold;
    QTest::newRow("light only") << "Quibble Feather" << normal << light;
    QTest::newRow("light only, in other letters") << "QUIBBLE feather" << normal << light;
    QTest::newRow("bold only") << "Quibble Brick" << normal << bold;
    QTest::newRow("lighter and heavier, the heaviest of the lighter") << "Quibble Range" << normal << light;
    QTest::newRow("below bold") << "Quibble Range" << demiBold << int(QFont::Medium);
    QTest::newRow("above all") << "Quibble Range" << int(QFont::Black) << bold;
    QTest::newRow("below all, the lightest") << "Liberation Sans" << light << normal;
    QTest::newRow("not installed") << "Quibble Sans" << normal << normal;
    QTest::newRow("not installed, odd weight") << "Quibble Sans" << 33 << 33;
    QTest::newRow("no family") << "" << bold << bold;
}

void TestTextUtil::fontWeight()
{
    QFETCH(QString, family);
    QFETCH(int, fallback);
    QTEST(ORVTextUtil::defaultFontWeight(family, fallback), "weight");
    QTEST(ORVTextUtil::defaultFontWeight(family, fallback), "weight");
}

void TestTextUtil::trimRemovesWhiteSpaceAtBothEnds_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("trimmed");

    QTest::newRow("nothing to remove") << "a b"
                                       << "a b";
    QTest::newRow("leading blanks") << "   a b"
                                    << "a b";
    QTest::newRow("trailing blanks") << "a b   "
                                     << "a b";
    QTest::newRow("both ends") << "  a  "
                               << "a";
    QTest::newRow("tabs") << "\ta\t"
                          << "a";
    QTest::newRow("empty paragraphs") << "||a||"
                                      << "a";
    QTest::newRow("blank paragraphs") << "  |\t| a | |  "
                                      << "a";
    QTest::newRow("paragraphs inside stay") << " |a| |b| "
                                            << "a| |b";
    QTest::newRow("no-break space and line separator")
        << QString(QChar(0xa0)) + QChar(0x2028) + QLatin1Char('a') + QChar(0x2028) + QChar(0xa0) << "a";
    QTest::newRow("white space only") << "  |\t|  "
                                      << "";
    QTest::newRow("empty document") << ""
                                    << "";
}

void TestTextUtil::trimRemovesWhiteSpaceAtBothEnds()
{
    QFETCH(QString, text);
    QFETCH(QString, trimmed);
    QTextDocument document;
    QTextCursor writer(&document);
    insertParagraphs(&writer, text);
    QTextCursor cursor = wholeDocument(&document);
    ORVTextUtil::trim(cursor);
    QCOMPARE(paragraphs(document), trimmed);
    QCOMPARE(cursor.selectedText(), QString(trimmed).replace(QLatin1Char('|'), QChar(0x2029)));
}

void TestTextUtil::trimChangesOnlyTheSelection_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("anchor");
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("trimmed");
    QTest::addColumn<QString>("selected");

    QTest::newRow("inside blanks") << "  x  y  " << 4 << 7 << "  x y "
                                   << "y";
    QTest::newRow("backwards") << "  x  y  " << 7 << 4 << "  x y "
                               << "y";
    QTest::newRow("blanks only") << "a    b" << 2 << 4 << "a  b"
                                 << "";
    QTest::newRow("paragraph end in front") << "a|b|c" << 1 << 3 << "ab|c"
                                            << "b";
    QTest::newRow("paragraph end behind") << "a|b|c" << 2 << 4 << "a|bc"
                                          << "b";
}

void TestTextUtil::trimChangesOnlyTheSelection()
{
    QFETCH(QString, text);
    QFETCH(int, anchor);
    QFETCH(int, position);
    QTextDocument document;
    QTextCursor writer(&document);
    insertParagraphs(&writer, text);
    QTextCursor cursor(&document);
    cursor.setPosition(anchor);
    cursor.setPosition(position, QTextCursor::KeepAnchor);
    ORVTextUtil::trim(cursor);
    QTEST(paragraphs(document), "trimmed");
    QTEST(cursor.selectedText(), "selected");
}

void TestTextUtil::trimWithoutSelectionDoesNothing()
{
    QTextDocument document(QLatin1String("  a  "));
    QTextCursor cursor(&document);
    ORVTextUtil::trim(cursor);
    QCOMPARE(paragraphs(document), QString(QLatin1String("  a  ")));

    QTextCursor null;
    ORVTextUtil::trim(null);
    QVERIFY(null.isNull());
}

void TestTextUtil::trimKeepsCharacterFormats()
{
    QTextDocument document;
    QTextCursor writer(&document);
    QTextCharFormat plain;
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    QTextCharFormat italic;
    italic.setFontItalic(true);
    writer.insertText(QLatin1String("  "), plain);
    writer.insertText(QLatin1String(" bold"), bold);
    writer.insertText(QLatin1String(" italic "), italic);
    writer.insertText(QLatin1String("  "), plain);
    QTextCursor cursor = wholeDocument(&document);
    ORVTextUtil::trim(cursor);

    QTextBlock::iterator it = document.begin().begin();
    QCOMPARE(it.fragment().text(), QString(QLatin1String("bold")));
    QVERIFY(it.fragment().charFormat() == bold);
    ++it;
    QCOMPARE(it.fragment().text(), QString(QLatin1String(" italic")));
    QVERIFY(it.fragment().charFormat() == italic);
    ++it;
    QVERIFY(it.atEnd());
}

void TestTextUtil::trimKeepsFormatsOfTheFirstParagraph()
{
    QTextDocument document;
    QTextCursor writer(&document);
    QTextBlockFormat right;
    right.setAlignment(Qt::AlignRight);
    QTextBlockFormat centred;
    centred.setAlignment(Qt::AlignHCenter);
    QTextCharFormat italic;
    italic.setFontItalic(true);
    writer.setBlockFormat(right);
    writer.insertText(QLatin1String("  "));
    writer.insertBlock(right);
    writer.insertBlock(centred, italic);
    writer.createList(QTextListFormat::ListDecimal);
    writer.insertText(QLatin1String(" text"));
    QTextCursor cursor = wholeDocument(&document);
    ORVTextUtil::trim(cursor);

    QCOMPARE(paragraphs(document), QString(QLatin1String("text")));
    QCOMPARE(int(document.begin().blockFormat().alignment()), int(Qt::AlignHCenter));
    QVERIFY(document.begin().charFormat() == italic);
    QVERIFY(document.begin().textList());
}

// The selection begins inside a paragraph, which takes in what follows.
void TestTextUtil::trimKeepsFormatOfParagraphThatIsEntered()
{
    QTextDocument document;
    QTextCursor writer(&document);
    QTextBlockFormat right;
    right.setAlignment(Qt::AlignRight);
    QTextCharFormat italic;
    italic.setFontItalic(true);
    writer.setBlockFormat(right);
    writer.insertText(QLatin1String("a "));
    writer.insertBlock(QTextBlockFormat(), italic);
    writer.insertText(QLatin1String(" b"));
    QTextCursor cursor(&document);
    cursor.setPosition(1);
    cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    ORVTextUtil::trim(cursor);

    QCOMPARE(paragraphs(document), QString(QLatin1String("ab")));
    QCOMPARE(int(document.begin().blockFormat().alignment()), int(Qt::AlignRight));
    QVERIFY(document.begin().charFormat() == QTextCharFormat());
}

void TestTextUtil::trimKeepsFormatsOfTheLastParagraph()
{
    QTextDocument document;
    QTextCursor writer(&document);
    QTextBlockFormat right;
    right.setAlignment(Qt::AlignRight);
    QTextCharFormat italic;
    italic.setFontItalic(true);
    writer.insertText(QLatin1String("first"));
    writer.insertBlock(right, italic);
    writer.insertText(QLatin1String("last "));
    writer.insertBlock(QTextBlockFormat(), QTextCharFormat());
    writer.insertText(QLatin1String("  "));
    writer.insertBlock();
    QTextCursor cursor = wholeDocument(&document);
    ORVTextUtil::trim(cursor);

    QCOMPARE(paragraphs(document), QString(QLatin1String("first|last")));
    QCOMPARE(int(document.lastBlock().blockFormat().alignment()), int(Qt::AlignRight));
    QVERIFY(document.lastBlock().charFormat() == italic);
}

void TestTextUtil::trimKeepsTables()
{
    QTextDocument document;
    QTextCursor writer(&document);
    insertParagraphs(&writer, QLatin1String("  | "));
    QTextTable* table = writer.insertTable(1, 2);
    table->cellAt(0, 0).firstCursorPosition().insertText(QLatin1String(" a"));
    table->cellAt(0, 1).firstCursorPosition().insertText(QLatin1String("b "));
    writer.movePosition(QTextCursor::End);
    insertParagraphs(&writer, QLatin1String(" | "));
    QTextCursor cursor = wholeDocument(&document);
    ORVTextUtil::trim(cursor);

    QCOMPARE(paragraphs(document), QString(QLatin1String("| a|b |")));
    QCOMPARE(document.rootFrame()->childFrames().size(), 1);
    QCOMPARE(table->columns(), 2);
}

void TestTextUtil::trimKeepsPictures()
{
    QTextDocument document;
    QTextCursor writer(&document);
    writer.insertText(QLatin1String("  "));
    writer.insertImage(QLatin1String("first"));
    writer.insertText(QLatin1String(" x "));
    writer.insertImage(QLatin1String("second"));
    writer.insertText(QLatin1String("  "));
    QTextCursor cursor = wholeDocument(&document);
    ORVTextUtil::trim(cursor);
    const QString picture = QChar(QChar::ObjectReplacementCharacter);
    QCOMPARE(paragraphs(document), picture + QLatin1String(" x ") + picture);
}

void TestTextUtil::trimIsOneUndoStep()
{
    QTextDocument document;
    QTextCursor writer(&document);
    insertParagraphs(&writer, QLatin1String("  |a|  "));
    document.clearUndoRedoStacks();
    QTextCursor cursor = wholeDocument(&document);
    ORVTextUtil::trim(cursor);
    document.undo();
    QVERIFY(!document.isUndoAvailable());
    QCOMPARE(paragraphs(document), QString(QLatin1String("  |a|  ")));
}

void TestTextUtil::leadingSpaces_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("trimmed");

    QTest::newRow("none") << "a b "
                          << "a b ";
    QTest::newRow("blanks") << "   a b "
                            << "a b ";
    QTest::newRow("other white space")
        << QString(QLatin1String("\t\n")) + QChar(0xa0) + QLatin1String("a") << "a";
    QTest::newRow("white space only") << " \t "
                                      << "";
    QTest::newRow("empty") << ""
                           << "";
}

void TestTextUtil::leadingSpaces()
{
    QFETCH(QString, text);
    QTEST(ORVTextUtil::trimLeadingSpaces(text), "trimmed");
}

QTEST_MAIN(TestTextUtil)
#include "tst_textutil.moc"
