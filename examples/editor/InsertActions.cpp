#include "InsertActions.h"

#include "Icons.h"
#include "TableDialog.h"

#include <ORVGuiUtil.h>

#include <QAction>
#include <QFileDialog>
#include <QImageReader>
#include <QMessageBox>
#include <QTextEdit>
#include <QTextTable>
#include <QUrl>

namespace {

/*! A thin line around each cell, and columns of equal widths that fill the page together. */
QTextTableFormat tableFormat(int columns)
{
    QTextTableFormat format;
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setCellPadding(4);
    format.setCellSpacing(0);
    format.setBorderCollapse(true);
    format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    const QTextLength width(QTextLength::PercentageLength, 100.0 / columns);
    format.setColumnWidthConstraints(QVector<QTextLength>(columns, width));
    return format;
}

QString pictureFilter()
{
    QStringList patterns;
    const QList<QByteArray> formats = QImageReader::supportedImageFormats();
    for (const QByteArray& format : formats)
        patterns << QStringLiteral("*.") + QString::fromLatin1(format);
    return InsertActions::tr("Pictures (%1)").arg(patterns.join(QLatin1Char(' ')));
}

} // namespace

InsertActions::InsertActions(QTextEdit* edit) : QObject(edit), m_edit(edit)
{
    QAction* table = new QAction(Icons::table(), tr("&Table…"), this);
    connect(table, &QAction::triggered, this, &InsertActions::askForTable);
    QAction* picture = new QAction(Icons::picture(), tr("&Picture…"), this);
    connect(picture, &QAction::triggered, this, &InsertActions::askForPicture);
    m_actions << table << picture;
}

void InsertActions::insertTable(int rows, int columns)
{
    const QTextTable* table = m_edit->textCursor().insertTable(rows, columns, tableFormat(columns));
    m_edit->setTextCursor(table->firstCursorPosition());
}

bool InsertActions::insertPicture(const QString& fileName, QString* message)
{
    QImageReader reader(fileName);
    reader.setAutoTransform(true); // as the camera was held
    const QImage image = reader.read();
    if (image.isNull()) {
        *message = reader.errorString();
        return false;
    }
    // A name made of the pixels: no other picture, of whatever document, has it.
    const QString name = ORVGuiUtil::resourceId(image);
    m_edit->document()->addResource(QTextDocument::ImageResource, QUrl(name), image);
    QTextImageFormat format;
    format.setName(name);
    // Not wider than the page.
    const QSizeF size = QSizeF(image.size());
    const qreal room = m_edit->viewport()->width() - 2 * m_edit->document()->documentMargin();
    const qreal scale = qMin(1.0, room / size.width());
    format.setWidth(size.width() * scale);
    format.setHeight(size.height() * scale);
    m_edit->textCursor().insertImage(format);
    return true;
}

void InsertActions::askForTable()
{
    TableDialog dialog(m_edit->window());
    if (dialog.exec() == QDialog::Accepted)
        insertTable(dialog.rows(), dialog.columns());
}

void InsertActions::askForPicture()
{
    const QString fileName =
        QFileDialog::getOpenFileName(m_edit->window(), tr("Insert picture"), QString(), pictureFilter());
    QString message;
    if (!fileName.isEmpty() && !insertPicture(fileName, &message))
        QMessageBox::warning(
            m_edit->window(), tr("Insert picture"),
            tr("%1 cannot be inserted: %2").arg(QDir::toNativeSeparators(fileName), message));
}
