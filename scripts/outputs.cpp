/*
    outputs FOLDER: converts each RTF file whose name comes on the standard input, and writes what the library
    makes of it into FOLDER: the document property by property, RTF in both forms, the stripped RTF, and the
    stock form. Built by scripts/compare.sh against two versions of the library, so it uses public functions
    only.
*/
#include <ORVStockFormats.h>
#include <ORVTextListFormat.h>
#include <ORVTextRtf.h>
#include <ORVTextRtfReader.h>
#include <ORVTextRtfStripper.h>

#include <QtCore/QBuffer>
#include <QtCore/QCryptographicHash>
#include <QtCore/QDebug>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTextStream>
#include <QtGui/QGuiApplication>
#include <QtGui/QTextBlock>
#include <QtGui/QTextDocument>
#include <QtGui/QTextFrame>
#include <QtGui/QTextList>
#include <QtGui/QTextTable>

namespace {

/*! The structure of a document as text, one line for each frame, cell, paragraph and run. */
class Dump {
public:
    explicit Dump(const QTextDocument& document) : m_stream(&m_text)
    {
        writeFrame(document.rootFrame());
        for (const QByteArray& name : document.dynamicPropertyNames())
            m_stream << "property " << name << ' ' << valueOf(document.property(name.constData())) << '\n';
        m_stream.flush();
    }

    QByteArray text() const { return m_text.toUtf8(); }

private:
    static QString valueOf(const QVariant& value)
    {
        if (value.userType() == qMetaTypeId<QTextOption::Tab>()) {
            const QTextOption::Tab tab = value.value<QTextOption::Tab>();
            return QStringLiteral("tab %1 %2 %3")
                .arg(tab.position)
                .arg(int(tab.type))
                .arg(int(tab.delimiter.unicode()));
        }
        QString text;
        QDebug debug(&text);
        if (value.userType() == QMetaType::QVariantList) {
            for (const QVariant& item : value.toList())
                text += valueOf(item) + QLatin1Char(',');
        } else if (value.userType() == qMetaTypeId<QVector<QTextLength>>()) {
            for (const QTextLength& length : value.value<QVector<QTextLength>>())
                debug << int(length.type()) << length.rawValue();
        } else {
            debug << value;
        }
        return text;
    }

    void writeFormat(const QTextFormat& format)
    {
        const QMap<int, QVariant> properties = format.properties();
        for (QMap<int, QVariant>::const_iterator it = properties.begin(); it != properties.end(); ++it)
            m_stream << ' ' << Qt::hex << it.key() << Qt::dec << '=' << valueOf(it.value());
        m_stream << '\n';
    }

    void writeBlock(const QTextBlock& block)
    {
        m_stream << "block";
        writeFormat(block.blockFormat());
        m_stream << " char";
        writeFormat(block.charFormat());
        if (QTextList* const list = block.textList()) {
            m_stream << " list item " << list->itemNumber(block) << " level "
                     << ORVTextListFormat::blockLevel(list, block);
            for (const ORVTextListLevel& level : ORVTextListFormat::levels(list->format()))
                m_stream << " [" << level.text() << ' ' << level.kind() << ' ' << level.indent() << ' '
                         << level.firstLinePosition() << ']';
            writeFormat(list->format());
        }
        for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
            m_stream << " run \"" << it.fragment().text() << '"';
            writeFormat(it.fragment().charFormat());
            writePicture(block.document(), it.fragment().charFormat());
        }
    }

    void writePicture(const QTextDocument* document, const QTextCharFormat& format)
    {
        if (!format.isImageFormat())
            return;
        const QVariant resource =
            document->resource(QTextDocument::ImageResource, QUrl(format.toImageFormat().name()));
        m_stream << " picture " << resource.value<QImage>().size().width() << 'x'
                 << resource.value<QImage>().size().height() << '\n';
    }

    void writeFrame(QTextFrame* frame)
    {
        if (QTextTable* const table = qobject_cast<QTextTable*>(frame)) {
            m_stream << "table " << table->rows() << 'x' << table->columns();
            writeFormat(table->format());
            for (int row = 0; row < table->rows(); ++row) {
                for (int column = 0; column < table->columns(); ++column)
                    writeCell(table->cellAt(row, column), row, column);
            }
        } else {
            m_stream << "frame";
            writeFormat(frame->frameFormat());
            writeContent(frame->begin());
        }
        m_stream << "end\n";
    }

    void writeCell(const QTextTableCell& cell, int row, int column)
    {
        if (!cell.isValid() || cell.row() != row || cell.column() != column)
            return;
        m_stream << "cell " << row << ',' << column << ' ' << cell.rowSpan() << 'x' << cell.columnSpan();
        writeFormat(cell.format());
        writeContent(cell.begin());
    }

    void writeContent(QTextFrame::iterator it)
    {
        for (; !it.atEnd(); ++it) {
            if (it.currentFrame())
                writeFrame(it.currentFrame());
            else
                writeBlock(it.currentBlock());
        }
    }

    QString m_text;
    QTextStream m_stream;
};

void save(const QString& fileName, const QByteArray& data)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size())
        qFatal("cannot write %s", qPrintable(fileName));
}

QByteArray stripped(QByteArray rtf)
{
    QBuffer input(&rtf);
    QBuffer output;
    input.open(QIODevice::ReadOnly);
    output.open(QIODevice::WriteOnly);
    ORVTextRtfStripper stripper;
    stripper.setDevice(&input);
    stripper.setOutput(&output);
    stripper.process();
    return output.data();
}

void convert(const QString& fileName, const QString& stem)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(fileName));
    QByteArray rtf = file.readAll();
    QBuffer buffer(&rtf);
    buffer.open(QIODevice::ReadOnly);
    QTextDocument document;
    ORVTextRtfReader reader(&buffer);
    reader.read(&document);
    const QString outcome = QStringLiteral("status %1, page %2x%3 %4 %5 %6 %7\n")
                                .arg(reader.error())
                                .arg(reader.paperWidth())
                                .arg(reader.paperHeight())
                                .arg(reader.marginLeft())
                                .arg(reader.marginRight())
                                .arg(reader.marginTop())
                                .arg(reader.marginBottom());
    save(stem + QLatin1String(".document"), outcome.toUtf8() + Dump(document).text());
    save(stem + QLatin1String(".stored"), ORVTextRtf::toRtfData(&document, false, false));
    save(stem + QLatin1String(".exported"), ORVTextRtf::toRtfData(&document, false, true));
    save(stem + QLatin1String(".stripped"), stripped(rtf));
    ORVStockFormats::toStock(&document);
    save(stem + QLatin1String(".stock"), Dump(document).text());
    ORVStockFormats::fromStock(&document);
    save(stem + QLatin1String(".back"), Dump(document).text());
}

} // namespace

int main(int argc, char** argv)
{
    qSetGlobalQHashSeed(0);
    QGuiApplication application(argc, argv);
    const QDir folder(QString::fromLocal8Bit(argc > 1 ? argv[1] : "."));
    QTextStream input(stdin);
    int number = 0;
    for (QString name = input.readLine(); !name.isNull(); name = input.readLine()) {
        const QByteArray file = QFile::encodeName(QFileInfo(name).fileName());
        convert(name,
                folder.filePath(QStringLiteral("%1-%2")
                                    .arg(number++, 5, 10, QLatin1Char('0'))
                                    .arg(QString::fromLocal8Bit(file))));
    }
}
