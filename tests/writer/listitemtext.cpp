#include "ORVRtfListItemText_p.h"
#include "testsupport.h"

/*! The text before list items, which must be what Qt's own list gives. */
class TestListItemText : public QObject {
    Q_OBJECT

private slots:
    ORV_ROWS(textOfNumber)
    {
        const Rows add([](int style, int number, const QString& text) {
            QTextListFormat format;
            format.setStyle(QTextListFormat::Style(style));
            QCOMPARE(ORVRtfListItemText::itemText(format, number, false), text);
        });
        add("decimal 1", int(QTextListFormat::ListDecimal), 1, "1.");
        add("decimal 20000", int(QTextListFormat::ListDecimal), 20000, "20000.");
        add("letter 26", int(QTextListFormat::ListLowerAlpha), 26, "z.");
        add("letter 27", int(QTextListFormat::ListLowerAlpha), 27, "aa.");
        add("letter 52", int(QTextListFormat::ListUpperAlpha), 52, "AZ.");
        add("letter 53", int(QTextListFormat::ListUpperAlpha), 53, "BA.");
        add("letter 702", int(QTextListFormat::ListLowerAlpha), 702, "zz.");
        add("letter 703", int(QTextListFormat::ListLowerAlpha), 703, "aaa.");
        add("roman 4", int(QTextListFormat::ListLowerRoman), 4, "iv.");
        add("roman 1999", int(QTextListFormat::ListUpperRoman), 1999, "MCMXCIX.");
        add("roman 4999", int(QTextListFormat::ListUpperRoman), 4999, "MMMMCMXCIX.");
        add("roman 5000", int(QTextListFormat::ListLowerRoman), 5000, "?.");
        add("disc", int(QTextListFormat::ListDisc), 3, ".");
        add("no style", int(QTextListFormat::ListStyleUndefined), 3, ".");
    }

    void agreesWithQtForEveryStyle_data()
    {
        Columns<int, bool, bool>("style", "surrounded", "rightToLeft");
        for (int style = QTextListFormat::ListUpperRoman; style <= QTextListFormat::ListStyleUndefined;
             ++style) {
            for (int i = 0; i < 4; ++i)
                QTest::addRow("style %d, surrounded %d, right to left %d", style, i % 2, i / 2)
                    << style << bool(i % 2) << bool(i / 2);
        }
    }

    void agreesWithQtForEveryStyle()
    {
        FETCH(int, style, bool, surrounded, bool, rightToLeft);
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
};

ORV_TEST("listitemtext", TestListItemText, QGuiApplication)
#include "listitemtext.moc"
