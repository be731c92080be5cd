#include "testsupport.h"

using namespace rtftest;

namespace {

const QColor colors[] = {QColor(), Qt::red, Qt::green, Qt::blue, Qt::white};

/*! What a row says of a column: its right boundary, and of the cell in it. */
struct Definition {
    int boundary = 0;
    bool verticalMerge = false;
    bool horizontalMerge = false;
    int color = 0;
    int alignment = QTextCharFormat::AlignTop;
};

/*! The text of a cell: paragraphs of one alignment, 0 for none stated, in italics or not. */
struct Cell {
    QString text;
    int alignment = 0;
    bool italic = false;
};

struct Row {
    QList<Definition> definitions;
    QList<Cell> cells;
};

QTextCharFormat italicFormat(bool italic)
{
    QTextCharFormat format;
    format.setFontItalic(italic);
    return format;
}

void insert(QTextCursor& cursor, const Cell& cell)
{
    QTextBlockFormat format;
    if (cell.alignment != 0)
        format.setProperty(QTextFormat::BlockAlignment, cell.alignment);
    cursor.setBlockFormat(format);
    cursor.setBlockCharFormat(italicFormat(cell.italic));
    cursor.insertText(cell.text, italicFormat(cell.italic));
}

/*! A table that grows row by row, by Qt's own operations. */
class Table {
public:
    explicit Table(const QTextCursor& parent) : m_parent(parent) { }

    void addRow(Row row)
    {
        QTextTableFormat format;
        format.setCellSpacing(0.0);
        format.setCellPadding(0.0);
        if (m_table) {
            adaptColumns(row);
        } else {
            m_table = m_parent.insertTable(1, int(row.cells.size()), format);
            m_parent.movePosition(QTextCursor::End);
            for (const Definition& definition : row.definitions)
                m_boundaries << definition.boundary;
        }
        if (row.cells.size() == m_table->columns() && !row.cells.isEmpty())
            fill(row);
        m_table->setFormat(format);
    }

    /*! Sets the column widths and returns the place behind the table. */
    QTextCursor close(double textWidth)
    {
        const int count = m_table->columns();
        QVector<QTextLength> widths;
        for (int i = 0; i < count; ++i) {
            const double left = i > 0 && i <= m_boundaries.size() ? m_boundaries.at(i - 1) : 0.0;
            const double width =
                count > m_boundaries.size() ? 100.0 / count : 100.0 * (m_boundaries.at(i) - left) / textWidth;
            widths << QTextLength(QTextLength::PercentageLength, width);
        }
        QTextTableFormat format = m_table->format();
        format.setColumnWidthConstraints(widths);
        m_table->setFormat(format);
        m_parent.insertBlock();
        return m_parent;
    }

private:
    void adaptColumns(Row& row)
    {
        for (int i = 0; i < row.cells.size(); ++i) {
            if (i < row.definitions.size())
                adaptColumn(row, i);
            else if (m_table->columns() < i) {
                m_table->appendColumns(1);
                m_boundaries << 0;
            }
        }
        m_table->appendRows(1);
    }

    void adaptColumn(Row& row, int i)
    {
        const Definition definition = row.definitions.at(i);
        if (i >= m_boundaries.size()) {
            m_table->appendColumns(1);
            widenCells(i);
            m_boundaries << definition.boundary;
        } else if (definition.boundary < m_boundaries.at(i)) {
            m_table->insertColumns(i + 1, 1);
            widenCells(i);
            m_boundaries.insert(i, definition.boundary);
        } else if (definition.boundary > m_boundaries.at(i)) {
            row.definitions.insert(i + 1, Definition{definition.boundary, definition.verticalMerge, true});
            row.cells.insert(i + 1, Cell());
        }
    }

    void widenCells(int column)
    {
        for (int r = 0; r < m_table->rows();) {
            const QTextTableCell cell = m_table->cellAt(r, column);
            if (!cell.isValid())
                return;
            r += cell.rowSpan();
            m_table->mergeCells(cell.row(), cell.column(), cell.rowSpan(), cell.columnSpan() + 1);
        }
    }

    void fill(const Row& row)
    {
        const int last = m_table->rows() - 1;
        for (int c = 0; c < row.cells.size(); ++c) {
            const Definition definition = row.definitions.value(c);
            const QTextTableCell above = m_table->cellAt(last - 1, c), left = m_table->cellAt(last, c - 1);
            if (definition.verticalMerge && above.isValid())
                m_table->mergeCells(above.row(), above.column(), last - above.row() + 1, above.columnSpan());
            else if (!definition.verticalMerge && definition.horizontalMerge && left.isValid())
                m_table->mergeCells(left.row(), left.column(), left.rowSpan(), c - left.column() + 1);
            else if (!definition.verticalMerge && !definition.horizontalMerge)
                fillCell(m_table->cellAt(last, c), definition, row.cells.at(c));
        }
    }

    static void fillCell(QTextTableCell target, const Definition& definition, const Cell& cell)
    {
        if (!target.isValid())
            return;
        QTextDocument document;
        QTextCursor content(&document);
        insert(content, cell);
        QTextCharFormat format = target.format().toCharFormat();
        if (definition.color != 0)
            format.setBackground(QBrush(colors[definition.color], Qt::SolidPattern));
        format.setProperty(QTextFormat::TextVerticalAlignment, definition.alignment);
        format.merge(document.begin().charFormat());
        target.setFormat(format);
        QTextCursor cursor = target.lastCursorPosition();
        cursor.setBlockFormat(document.begin().blockFormat());
        cursor.setCharFormat(format);
        cursor.insertFragment(QTextDocumentFragment(&document));
    }

    QTextCursor m_parent;
    QTextTable* m_table = nullptr;
    QList<int> m_boundaries;
};

/*! Random tables of a fixed seed. */
class Generator {
public:
    explicit Generator(unsigned seed) : m_engine(seed) { }

    /*! Rows with any boundaries, so that columns are split; no cell is merged with the one above. */
    QList<Row> splitTable()
    {
        QList<Row> rows;
        for (int r = upTo(7); r >= 0; --r) {
            Row row = rowOf(boundaries(1 + upTo(5)));
            for (Definition& definition : row.definitions)
                definition.horizontalMerge = oneIn(8);
            if (oneIn(6))
                row.cells = cells(qMax(1, int(row.cells.size()) + upTo(4) - 2));
            rows << row;
        }
        return rows;
    }

    /*! Rows whose boundaries are the first row's or some of them; any cell may be merged. */
    QList<Row> mergedTable()
    {
        const QList<int> all = boundaries(1 + upTo(5));
        QList<Row> rows{rowOf(all)};
        for (int r = upTo(7); r > 0; --r) {
            QList<int> some = all;
            for (int i = int(all.size()) - 2; i >= 0 && r % 2 == 0; --i) {
                if (oneIn(2))
                    some.removeAt(i);
            }
            rows << rowOf(some);
        }
        for (Row& row : rows) {
            for (Definition& definition : row.definitions) {
                definition.verticalMerge = oneIn(3);
                definition.horizontalMerge = oneIn(5);
            }
            if (oneIn(10))
                row.cells = cells(qMax(1, int(row.cells.size()) - 1));
        }
        return rows;
    }

private:
    int upTo(int n) { return int(m_engine() % unsigned(n + 1)); }
    bool oneIn(int n) { return upTo(n - 1) == 0; }

    QList<int> boundaries(int count)
    {
        QList<int> steps;
        for (int step = 1; step <= 12; ++step)
            steps << step * 720;
        while (steps.size() > count)
            steps.removeAt(upTo(int(steps.size()) - 1));
        return steps;
    }

    Row rowOf(const QList<int>& boundaries)
    {
        Row row;
        for (int boundary : boundaries)
            row.definitions << Definition{boundary, false, false, upTo(4),
                                          QTextCharFormat::AlignMiddle + upTo(2)};
        row.cells = cells(int(boundaries.size()));
        return row;
    }

    QList<Cell> cells(int count)
    {
        QList<Cell> result;
        for (int i = 0; i < count; ++i) {
            const QString word = "w%1"_s.arg(++m_words);
            const QString texts[] = {QString(), word, word + "\n"_s + word};
            const int alignments[] = {0, Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
            result << Cell{texts[upTo(2)], alignments[upTo(3)], oneIn(2)};
        }
        return result;
    }

    std::mt19937 m_engine;
    int m_words = 0;
};

QByteArray rtfOf(const Row& row)
{
    static const char* const cellAlignments[] = {"\\clvertalc", "", "\\clvertalb"};
    static const char* const alignments[] = {"", "\\ql", "\\qr", "", "\\qc"};
    QByteArray rtf = "\\trowd\\trgaph0";
    for (const Definition& definition : row.definitions) {
        rtf += definition.verticalMerge ? "\\clvmrg" : "";
        rtf += definition.horizontalMerge ? "\\clmrg" : "";
        if (definition.color != 0)
            rtf += "\\clcbpat" + QByteArray::number(definition.color);
        rtf += cellAlignments[definition.alignment - QTextCharFormat::AlignMiddle];
        rtf += "\\cellx" + QByteArray::number(definition.boundary);
    }
    for (const Cell& cell : row.cells)
        rtf += "\\pard\\intbl"_b + alignments[cell.alignment] + (cell.italic ? "\\i " : "\\i0 ")
            + cell.text.toLatin1().replace("\n", "\\par ") + "\\cell";
    return rtf + "\\row\n";
}

QByteArray rtfOf(const QList<Row>& rows, bool closed)
{
    QByteArray rtf = "{\\rtf1" + colorTable();
    for (const Row& row : rows)
        rtf += rtfOf(row);
    return rtf + (closed ? "\\pard\\qc\\i after}" : "}");
}

/*! The same document, its table made row by row. */
QSharedPointer<QTextDocument> liveDocument(const QList<Row>& rows, bool closed)
{
    const QSharedPointer<QTextDocument> document = newDocument();
    Table table{QTextCursor(document.data())};
    for (const Row& row : rows)
        table.addRow(row);
    if (closed) {
        QTextCursor behind = table.close(8640.0);
        insert(behind, {"after"_s, Qt::AlignHCenter, true});
    }
    return document;
}

QString own(const QTextFormat& format)
{
    return '[' + dump(ownProperties(format)) + ']';
}

/*!
    Everything of a document that tables can change. Of an empty paragraph only its existence: when a column
    or row is inserted behind an empty cell, Qt gives the paragraph's format to the new cell instead. Cells
    that span both ways may have been joined from several; which of their paragraph formats are left then
    depends on the order in which Qt joined them, so that they are left out unless \a ofJoinedCells.
*/
QStringList linesOf(const QTextDocument& document, bool ofJoinedCells = true)
{
    QStringList lines(contentOf(document));
    for (const QTextTable* table : tablesOf(document))
        lines << own(table->format()) << widthsOf(table);
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QTextTable* const table = QTextCursor(block).currentTable();
        const QTextTableCell cell = table ? table->cellAt(block.position()) : QTextTableCell();
        if (cell.isValid() && cell.firstPosition() == block.position())
            lines << own(cell.format());
        const bool joined = cell.isValid() && cell.rowSpan() > 1 && cell.columnSpan() > 1;
        if (block.length() > 1 && (ofJoinedCells || !joined))
            lines << own(block.blockFormat()) + own(block.charFormat());
        for (const QTextFragment& fragment : fragmentsOf(block))
            lines << fragment.text() + own(fragment.charFormat());
    }
    return lines;
}

} // namespace

/*! What the reader makes of rows, compared with tables that grow row by row by Qt's own operations. */
class TestTablesModel : public QObject {
    Q_OBJECT

private slots:
    /*! Any change of a row is seen by the comparison. */
    void differenceIsFound()
    {
        const Row row{{Definition{4320}, Definition{8640}}, {Cell{"word"_s}, Cell{"word"_s}}};
        const QStringList lines = linesOf(*liveDocument({row, row}, true));
        QCOMPARE(linesOf(*liveDocument({row, row}, true)), lines);
        QVERIFY(linesOf(*liveDocument({row, row}, false)) != lines);
        const QList<std::function<void(Row&)>> changes = {
            [](Row& r) { r.definitions[1].boundary += 1; },
            [](Row& r) { r.definitions[0].boundary -= 1; },
            [](Row& r) { r.definitions[0].color = 1; },
            [](Row& r) { r.definitions[1].alignment = QTextCharFormat::AlignBottom; },
            [](Row& r) { r.definitions[0].verticalMerge = true; },
            [](Row& r) { r.definitions[1].horizontalMerge = true; },
            [](Row& r) { r.cells[0].alignment = Qt::AlignRight; },
            [](Row& r) { r.cells[1].text += QLatin1Char('s'); },
            [](Row& r) { r.cells[1].text += QLatin1Char('\n'); },
            [](Row& r) { r.cells[1].italic = true; },
            [](Row& r) { r.cells.removeLast(); }};
        for (int i = 0; i < changes.size(); ++i) {
            Row changed = row;
            changes.at(i)(changed);
            QVERIFY2(linesOf(*liveDocument({row, changed}, true)) != lines, qPrintable(QString::number(i)));
        }
    }

    /*! Columns that are split, joined and appended; cells merged with the one above or to the left. */
    ORV_ROWS(randomRows)
    {
        const Rows add([](int seed, bool merged) {
            Generator generator{unsigned(seed)};
            const QList<Row> rows = merged ? generator.mergedTable() : generator.splitTable();
            const bool closed = seed % 4 != 0;
            const Reading reading = read(rtfOf(rows, closed));
            QCOMPARE(reading.status, 0);
            QCOMPARE(linesOf(*reading.document, !merged), linesOf(*liveDocument(rows, closed), !merged));
        });
        for (int seed = 1; seed <= 500; ++seed) {
            add("split " + QByteArray::number(seed), seed, false);
            add("merged " + QByteArray::number(seed), seed, true);
        }
    }
};

ORV_TEST("tables_model", TestTablesModel, QGuiApplication)
#include "model.moc"
