#include "ORVListLevels.h"
#include "testsupport.h"

using rtftest::makeLevel;

namespace {

typedef ORVTextListLevel Level;
typedef QList<int> Levels;

/*! A document of one list, with an item on each of \a blockLevels. */
QSharedPointer<QTextDocument> documentOf(const QList<Level>& levels, const Levels& blockLevels)
{
    const QSharedPointer<QTextDocument> document(new QTextDocument("\n"_s.repeated(blockLevels.size() - 1)));
    QTextList* const list = QTextCursor(document.data()).createList(rtftest::listFormatWith(levels));
    for (int i = 0; i < blockLevels.size(); ++i) {
        list->add(document->findBlockByNumber(i));
        ORVTextListFormat::setBlockLevel(list, document->findBlockByNumber(i), blockLevels.at(i));
    }
    return document;
}

QString markersOf(const QTextDocument& document)
{
    QStringList markers;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        markers << block.textList()->itemText(block);
    return markers.join(QLatin1Char(' '));
}

} // namespace

/*! Levels of lists as Qt shows them once they are lists of their own. */
class TestListLevels : public QObject {
    Q_OBJECT

private slots:
    void nullDocumentIsLeftAlone() { ORVListLevels::separate(nullptr); }

    ORV_ROWS(markers)
    {
        const Rows add([](const QList<Level>& templates, const Levels& levels, const QString& markers) {
            const QSharedPointer<QTextDocument> document = documentOf(templates, levels);
            ORVListLevels::separate(document.data());
            QCOMPARE(markersOf(*document), markers);
        });
        const QList<Level> plain = {makeLevel(Level::Decimal, "%0."_s),
                                    makeLevel(Level::LowerLetter, "%0)"_s),
                                    makeLevel(Level::LowerRoman, "(%0)"_s)};
        const QList<Level> legal = {makeLevel(Level::Decimal, "%0"_s),
                                    makeLevel(Level::LowerLetter, "%1.%0"_s),
                                    makeLevel(Level::LowerRoman, "%2.%1.%0"_s)};
        add("counted anew", plain, {0, 1, 1, 0, 1}, "1. a) b) 2. a)");
        add("goes on behind a deeper level", plain, {0, 1, 2, 2, 1}, "1. a) (i) (ii) b)");
        add("numbers of the levels above", legal, {0, 0, 1, 1, 2, 0, 1}, "1 2 2.a 2.b 2.b.i 3 3.a");
        add("begins deep", legal, {1, 1}, "1.a 1.b");
        add("beyond the last level", plain, {0, 2, 7}, "1. (i) (ii)");
    }

    // Qt writes what is around the number the other way round: ".1" for the template "%0.".
    void numbersAboveFromRightToLeft()
    {
        const QSharedPointer<QTextDocument> document = documentOf(
            {makeLevel(Level::Decimal, "%0."_s), makeLevel(Level::LowerLetter, "%1.%0)"_s)}, {0, 0, 1});
        QTextCursor cursor(document.data());
        cursor.select(QTextCursor::Document);
        cursor.mergeBlockFormat(rtftest::blockFormat({{QTextFormat::LayoutDirection, int(Qt::RightToLeft)}}));
        ORVListLevels::separate(document.data());
        QCOMPARE(markersOf(*document), ".1 .2 )a2."_s);
    }

    // The list of level n adds n steps of 40 pixels more.
    void positionsStay()
    {
        const QSharedPointer<QTextDocument> document =
            documentOf({makeLevel(Level::Bullet, QChar(0x2022)), makeLevel(Level::Bullet, "o"_s)}, {0, 1});
        const QTextBlock deep = document->lastBlock();
        QTextCursor(deep).mergeBlockFormat(rtftest::blockFormat({{QTextFormat::BlockLeftMargin, 100.0}}));
        const int indentBefore = deep.textList()->format().indent();
        ORVListLevels::separate(document.data());
        QCOMPARE(deep.textList()->format().indent(), indentBefore + 1);
        QCOMPARE(deep.blockFormat().leftMargin(), 100 - 40.0);
        QCOMPARE(deep.textList()->format().style(), QTextListFormat::ListCircle);
        QCOMPARE(document->begin().textList()->format().style(), QTextListFormat::ListDisc);
    }

    void listsOfOneLevelAreLeftAlone()
    {
        const Level plain = makeLevel(Level::Decimal, "%0."_s);
        const QSharedPointer<QTextDocument> document = documentOf({plain, plain}, {0, 0});
        QTextList* const list = document->begin().textList();
        document->clearUndoRedoStacks();
        ORVListLevels::separate(document.data());
        QCOMPARE(document->availableUndoSteps(), 0);
        QCOMPARE(document->lastBlock().textList(), list);
    }
};

ORV_TEST("listlevels", TestListLevels, QGuiApplication)
#include "listlevels.moc"
