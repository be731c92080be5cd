#include "ORVRtfListItemText_p.h"

#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextList>
#include <QtTest/QtTest>

/*! The text before list items, which must be what Qt's own list gives. */
class tst_ListItemText : public QObject {
    Q_OBJECT

private slots:
    void textOfNumber_data();
    void textOfNumber();
    void agreesWithQtForEveryStyle_data();
    void agreesWithQtForEveryStyle();
};

void tst_ListItemText::textOfNumber_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");

    QTest::newRow("decimal 1") << int(QTextListFormat::ListDecimal) << 1 << "1.";
    QTest::newRow("decimal 20000") << int(QTextListFormat::ListDecimal) << 20000 << "20000.";
    QTest::newRow("letter 26") << int(QTextListFormat::ListLowerAlpha) << 26 << "z.";
    QTest::newRow("letter 27") << int(QTextListFormat::ListLowerAlpha) << 27 << "aa.";
    QTest::newRow("letter 52") << int(QTextListFormat::ListUpperAlpha) << 52 << "AZ.";
    QTest::newRow("letter 53") << int(QTextListFormat::ListUpperAlpha) << 53 << "BA.";
    QTest::newRow("letter 702") << int(QTextListFormat::ListLowerAlpha) << 702 << "zz.";
    QTest::newRow("letter 703") << int(QTextListFormat::ListLowerAlpha) << 703 << "aaa.";
    QTest::newRow("roman 4") << int(QTextListFormat::ListLowerRoman) << 4 << "iv.";
    QTest::newRow("roman 1999") << int(QTextListFormat::ListUpperRoman) << 1999 << "MCMXCIX.";
    QTest::newRow("roman 4999") << int(QTextListFormat::ListUpperRoman) << 4999 << "MMMMCMXCIX.";
    QTest::newRow("roman 5000") << int(QTextListFormat::ListLowerRoman) << 5000 << "?.";
    QTest::newRow("disc") << int(QTextListFormat::ListDisc) << 3 << ".";
    QTest::newRow("no style") << int(QTextListFormat::ListStyleUndefined) << 3 << ".";
}

void tst_ListItemText::textOfNumber()
{
    QFETCH(int, style);
    QFETCH(int, number);
    QTextListFormat format;
    format.setStyle(QTextListFormat::Style(style));
    QTEST(ORVRtfListItemText::itemText(format, number, false), "text");
}

void tst_ListItemText::agreesWithQtForEveryStyle_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<bool>("surrounded");
    QTest::addColumn<bool>("rightToLeft");

    for (int style = QTextListFormat::ListUpperRoman; style <= QTextListFormat::ListStyleUndefined; ++style) {
        for (int i = 0; i < 4; ++i)
            QTest::addRow("style %d, surrounded %d, right to left %d", style, i % 2, i / 2)
                << style << bool(i % 2) << bool(i / 2);
    }
}

void tst_ListItemText::agreesWithQtForEveryStyle()
{
    QFETCH(int, style);
    QFETCH(bool, surrounded);
    QFETCH(bool, rightToLeft);

    QTextListFormat format;
    format.setStyle(QTextListFormat::Style(style));
    if (surrounded) {
        format.setNumberPrefix("(");
        format.setNumberSuffix(")");
    }
    QTextDocument document;
    QTextCursor cursor(&document);
    QTextBlockFormat paragraph;
    paragraph.setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    cursor.setBlockFormat(paragraph);
    QTextList* const list = cursor.createList(format);
    for (int i = 1; i < 150; ++i)
        cursor.insertBlock();

    QCOMPARE(list->count(), 150);
    for (int i = 0; i < list->count(); ++i)
        QCOMPARE(ORVRtfListItemText::itemText(list->format(), i + 1,
                                              list->item(i).textDirection() == Qt::RightToLeft),
                 list->itemText(list->item(i)));
}

QTEST_MAIN(tst_ListItemText)
#include "tst_listitemtext.moc"
