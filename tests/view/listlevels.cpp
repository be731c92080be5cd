#include "ORVListLevels.h"
#include "testsupport.h"

namespace {

typedef QList<int> Levels;

ORVTextListLevel level(ORVTextListLevel::Kind kind, const char* text)
{
    ORVTextListLevel level;
    level.setKind(kind);
    level.setText(QString::fromUtf8(text));
    return level;
}

/*! A document of one list, with an item on each of \a blockLevels. */
QSharedPointer<QTextDocument> documentOf(const QList<ORVTextListLevel>& levels, const Levels& blockLevels)
{
    const QSharedPointer<QTextDocument> document(new QTextDocument("\n"_s.repeated(blockLevels.size() - 1)));
    QTextListFormat format;
    ORVTextListFormat::setLevels(format, levels);
    QTextList* const list = QTextCursor(document.data()).createList(format);
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
        const Rows add(
            [](const QList<ORVTextListLevel>& templates, const Levels& levels, const QString& markers) {
                const QSharedPointer<QTextDocument> document = documentOf(templates, levels);
                ORVListLevels::separate(document.data());
                QCOMPARE(markersOf(*document), markers);
            });
        typedef ORVTextListLevel Level;
        const QList<Level> plain = {level(Level::Decimal, "%0."), level(Level::LowerLetter, "%0)"),
                                    level(Level::LowerRoman, "(%0)")};
        const QList<Level> legal = {level(Level::Decimal, "%0"), level(Level::LowerLetter, "%1.%0"),
                                    level(Level::LowerRoman, "%2.%1.%0")};
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
            {level(ORVTextListLevel::Decimal, "%0."), level(ORVTextListLevel::LowerLetter, "%1.%0)")},
            {0, 0, 1});
        QTextBlockFormat format;
        format.setLayoutDirection(Qt::RightToLeft);
        QTextCursor cursor(document.data());
        cursor.select(QTextCursor::Document);
        cursor.mergeBlockFormat(format);
        ORVListLevels::separate(document.data());
        QCOMPARE(markersOf(*document), ".1 .2 )a2."_s);
    }

    // The list of level n adds n steps of 40 pixels more.
    void positionsStay()
    {
        const QSharedPointer<QTextDocument> document = documentOf(
            {level(ORVTextListLevel::Bullet, u8"\u2022"), level(ORVTextListLevel::Bullet, "o")}, {0, 1});
        const QTextBlock deep = document->lastBlock();
        QTextBlockFormat format;
        format.setLeftMargin(100);
        QTextCursor(deep).mergeBlockFormat(format);
        const int indentBefore = deep.textList()->format().indent();
        ORVListLevels::separate(document.data());
        QCOMPARE(deep.textList()->format().indent(), indentBefore + 1);
        QCOMPARE(deep.blockFormat().leftMargin(), 100 - 40.0);
        QCOMPARE(deep.textList()->format().style(), QTextListFormat::ListCircle);
        QCOMPARE(document->begin().textList()->format().style(), QTextListFormat::ListDisc);
    }

    void listsOfOneLevelAreLeftAlone()
    {
        const ORVTextListLevel plain = level(ORVTextListLevel::Decimal, "%0.");
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
