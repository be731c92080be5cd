// A document with a table and a numbered list, written with settings of the writer.

#include <ORVTextListFormat.h>
#include <ORVTextRtfWriter.h>

#include <QBuffer>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QTextStream>
#include <QTextTable>

namespace {

/*! Chapters "1.", their sections "1.1", each 18 points further in than the other. */
QTextListFormat chapters()
{
    QList<ORVTextListLevel> levels;
    const char* const texts[] = {"%0.", "%1.%0"};
    for (const char* text : texts) {
        ORVTextListLevel level;
        level.setText(QLatin1String(text));
        level.setKind(ORVTextListLevel::Decimal);
        level.setFirstLinePosition(18.0 * levels.size());
        level.setIndent(18.0 * (levels.size() + 1));
        levels.append(level);
    }
    QTextListFormat format;
    ORVTextListFormat::setLevels(format, levels);
    return format;
}

void addItem(QTextCursor& cursor, QTextList* list, const char* text, int level)
{
    cursor.insertBlock();
    cursor.insertText(QLatin1String(text));
    list->add(cursor.block());
    ORVTextListFormat::setBlockLevel(list, cursor.block(), level);
}

} // namespace

int main()
{
    QTextDocument document;
    QTextCursor cursor(&document);
    QTextTable* table = cursor.insertTable(2, 2);
    table->cellAt(0, 0).firstCursorPosition().insertText(QLatin1String("Tea"));
    table->cellAt(0, 1).firstCursorPosition().insertText(QLatin1String("3.00"));
    table->mergeCells(1, 0, 1, 2);
    table->cellAt(1, 0).firstCursorPosition().insertText(QLatin1String("Both cells in one"));

    cursor.movePosition(QTextCursor::End);
    QTextList* list = cursor.createList(chapters());
    cursor.insertText(QLatin1String("First"));
    addItem(cursor, list, "A section", 1);
    addItem(cursor, list, "Second", 0);

    QBuffer device;
    ORVTextRtfWriter writer(&device);
    writer.setExportingMode(true);
    writer.setHightlightForMsWord(true);
    writer.setDecorateHyperlinks(true);
    writer.setHyperlinksColor(QColor(Qt::darkGreen));
    writer.setFootnotesWithLeadingSpace(true);
    writer.setFootnoteDestination(ORVTextRtf::ExportAsFootnote);
    writer.setAnnotationDestination(ORVTextRtf::ExportAsAlternateFootnote);
    const bool written = writer.write(&document, false);
    QTextStream(stdout) << (written ? "written: " : "not written: ") << device.data().count("\\row")
                        << " rows, " << device.data().count("\\listtext") << " list items\n";
    return 0;
}
