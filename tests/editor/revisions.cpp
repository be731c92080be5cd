#include "PrintCopy.h"
#include "RtfFile.h"
#include "editorhelpers.h"

using namespace editortest;
using namespace rtftest;

namespace {

/*! Green text of revision level 2; black and white begin every colour table. */
const char* const GreenSecondRevision = "{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue255;"
                                        "\\red0\\green99\\blue0;}Text {\\*\\orvrevlvl2\\cf3 green}";

/*! What \a document is exported as. */
QByteArray exported(const QTextDocument& document)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("exported.rtf"_s));
    QString message;
    if (!RtfFile::exportTo(file.fileName(), document, &message) || !file.open(QIODevice::ReadOnly))
        qFatal("no file");
    return file.readAll();
}

QColor colorOf(const QTextDocument& document, const QString& text)
{
    return formatOf(document, text).foreground().color();
}

} // namespace

/*! Revision levels in the editor window. */
class TestEditorRevisions : public EditorTest {
    Q_OBJECT

private slots:
    ORV_ROWS(levelIsShownAsAColour)
    {
        const Rows add([this](int level, const QColor& color) {
            open("Text {\\*\\orvrevlvl" + QByteArray::number(level) + " new}");
            QTRY_COMPARE(shownFormats().size(), 1);
            QCOMPARE(shownFormats().first().start, 5);
            QCOMPARE(shownFormats().first().length, 3);
            QCOMPARE(shownFormats().first().format.foreground().color(), color);
        });
        add("1", 1, QColor(Qt::red));
        add("2", 2, QColor(Qt::blue));
        add("3", 3, QColor(Qt::green));
        add("4", 4, QColor(255, 165, 0));
        add("5", 5, QColor(128, 0, 128));
    }

    /*! Other programs know no revision levels: they get a colour in place of the text's own. */
    void levelAndColourAreSaved()
    {
        open(GreenSecondRevision);
        QTRY_COMPARE(shownFormats().size(), 1);
        const QByteArray rtf = saved();
        QVERIFY2(message().startsWith("Saved with revision levels"_s), qPrintable(message()));
        QCOMPARE(colorTableOf(rtf),
                 "\\red0\\green0\\blue0;\\red255\\green255\\blue255;\\red0\\green99\\blue0;"_b);
        QVERIFY2(rtf.contains("\\*\\orvrevlvl2\\cf3 green}"), rtf.constData());
        const QTextCharFormat format = formatOf(*read(rtf).document, "green"_s);
        QCOMPARE(format.intProperty(ORVRtfProperty::RevisionLevel), 2);
        QCOMPARE(format.foreground().color(), QColor(0, 99, 0));

        const QByteArray forOthers = exported(*document());
        QVERIFY2(!forOthers.contains("\\orvrevlvl"), forOthers.constData());
        QCOMPARE(colorOf(*read(forOthers).document, "green"_s), QColor(Qt::blue));
        QCOMPARE(colorOf(*PrintCopy::of(*document()), "green"_s), QColor(Qt::blue));
        QCOMPARE(levels("Tg"), "02"_s);
        QCOMPARE(colorOf(*document(), "green"_s), QColor(0, 99, 0));
    }

    /*! So that page numbers, for example, are fields. */
    void documentWithoutLevelsIsSavedForOtherPrograms()
    {
        open("{\\*\\orvrevlvl1 Text}");
        select(0, 4);
        trigger("None");
        const QByteArray forOthers = exported(*document());
        QCOMPARE(saved(), forOthers);
        QCOMPARE(message(), QString());
    }

    ORV_ROWS(actionSetsTheLevel)
    {
        const Rows add([this](const QByteArray& body, int from, int to, const QByteArray& action,
                              const QByteArray& typed, const QString& levels) {
            open(body);
            select(from, to);
            trigger(action);
            type(typed.constData());
            QCOMPARE(this->levels("abcd"), levels);
        });
        add("selection", "a{\\b b}cd", 1, 3, "Revision 4", "", "0440");
        add("cells of a column",
            "\\trowd\\cellx2000\\cellx4000\\pard\\intbl a\\cell b\\cell\\row"
            "\\trowd\\cellx2000\\cellx4000\\pard\\intbl c\\cell d\\cell\\row\\pard",
            1, 6, "Revision 1", "", "1010");
        add("what is typed", "cad", 2, 2, "Revision 3", "b", "0300");
    }

    void levelIsRemoved()
    {
        open("a{\\b b}cd");
        select(1, 3);
        trigger("Revision 4");
        trigger("None");
        QVERIFY(!formatOf(*document(), "b"_s).hasProperty(ORVRtfProperty::RevisionLevel));
        QCOMPARE(content(), "a*b*cd"_s);
    }

    void actionsShowTheLevelAtTheCursor()
    {
        open(GreenSecondRevision);
        QVERIFY(action("None")->isChecked());
        select(7);
        QVERIFY(action("Revision 2")->isChecked());
        QVERIFY(!action("None")->isChecked());
    }

private:
    /*! The level of each of \a characters, a digit each. */
    QString levels(const char* characters) const
    {
        QString levels;
        for (const QChar character : QString::fromLatin1(characters))
            levels += QString::number(
                formatOf(*document(), QString(character)).intProperty(ORVRtfProperty::RevisionLevel));
        return levels;
    }
};

ORV_TEST("editor_revisions", TestEditorRevisions, QApplication)
#include "revisions.moc"
