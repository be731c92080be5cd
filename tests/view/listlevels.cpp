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
void fill(QTextDocument* document, const QList<ORVTextListLevel>& levels, const Levels& blockLevels)
{
    QTextListFormat format;
    ORVTextListFormat::setLevels(format, levels);
    QTextCursor cursor(document);
    QTextList* const list = cursor.createList(format);
    for (int i = 0; i < blockLevels.size(); ++i) {
        if (i > 0)
            cursor.insertBlock();
        ORVTextListFormat::setBlockLevel(list, cursor.block(), blockLevels.at(i));
    }
}

QStringList markersOf(const QTextDocument& document)
{
    QStringList markers;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        markers << block.textList()->itemText(block);
    return markers;
}

} // namespace

/*! Levels of lists as Qt shows them once they are lists of their own. */
class TestListLevels : public QObject {
    Q_OBJECT

private slots:
    void nullDocumentIsLeftAlone() { ORVListLevels::separate(nullptr); }

    ORV_ROWS(markers)
    {
        const Rows add([](const QStringList& templates, const Levels& levels, const QString& markers) {
            const ORVTextListLevel::Kind kinds[] = {ORVTextListLevel::Decimal, ORVTextListLevel::LowerLetter,
                                                    ORVTextListLevel::LowerRoman};
            QList<ORVTextListLevel> listLevels;
            for (int i = 0; i < templates.size(); ++i)
                listLevels << level(kinds[i], templates.at(i).toLatin1().constData());
            QTextDocument document;
            fill(&document, listLevels, levels);
            ORVListLevels::separate(&document);
            QCOMPARE(markersOf(document).join(QLatin1Char(' ')), markers);
        });
        const QStringList plain{"%0."_s, "%0)"_s, "(%0)"_s};
        const QStringList legal{"%0"_s, "%1.%0"_s, "%2.%1.%0"_s};
        add("counted anew", plain, Levels{0, 1, 1, 0, 1}, "1. a) b) 2. a)");
        add("goes on behind a deeper level", plain, Levels{0, 1, 2, 2, 1}, "1. a) (i) (ii) b)");
        add("numbers of the levels above", legal, Levels{0, 0, 1, 1, 2, 0, 1}, "1 2 2.a 2.b 2.b.i 3 3.a");
        add("begins deep", legal, Levels{1, 1}, "1.a 1.b");
        add("beyond the last level", plain, Levels{0, 2, 7}, "1. (i) (ii)");
    }

    // Qt writes what is around the number the other way round: ".1" for the template "%0.".
    void numbersAboveFromRightToLeft()
    {
        QTextDocument document;
        fill(&document,
             {level(ORVTextListLevel::Decimal, "%0."), level(ORVTextListLevel::LowerLetter, "%1.%0)")},
             {0, 0, 1});
        QTextBlockFormat format;
        format.setLayoutDirection(Qt::RightToLeft);
        QTextCursor cursor(&document);
        cursor.select(QTextCursor::Document);
        cursor.mergeBlockFormat(format);
        ORVListLevels::separate(&document);
        QCOMPARE(markersOf(document), QStringList({".1"_s, ".2"_s, ")a2."_s}));
    }

    // The list of level n adds n steps of 40 pixels more.
    void positionsStay()
    {
        QTextDocument document;
        fill(&document,
             {level(ORVTextListLevel::Bullet, "\xe2\x80\xa2"), level(ORVTextListLevel::Bullet, "o")}, {0, 1});
        const QTextBlock deep = document.lastBlock();
        QTextBlockFormat format;
        format.setLeftMargin(100);
        QTextCursor(deep).mergeBlockFormat(format);
        const int indentBefore = deep.textList()->format().indent();
        ORVListLevels::separate(&document);
        const int added = deep.textList()->format().indent() - indentBefore;
        QCOMPARE(added, 1);
        QCOMPARE(deep.blockFormat().leftMargin(), 100 - 40.0);
        QCOMPARE(deep.textList()->format().style(), QTextListFormat::ListCircle);
        QCOMPARE(document.begin().textList()->format().style(), QTextListFormat::ListDisc);
    }

    void listsOfOneLevelAreLeftAlone()
    {
        QTextDocument document;
        fill(&document, {level(ORVTextListLevel::Decimal, "%0."), level(ORVTextListLevel::Decimal, "%0.")},
             {0, 0});
        QTextList* const list = document.begin().textList();
        document.clearUndoRedoStacks();
        ORVListLevels::separate(&document);
        QCOMPARE(document.availableUndoSteps(), 0);
        QCOMPARE(document.lastBlock().textList(), list);
    }
};

ORV_TEST("listlevels", TestListLevels, QGuiApplication)
#include "listlevels.moc"
