#ifndef RICHTEXTEDIT_H
#define RICHTEXTEDIT_H

#include <QTextEdit>

/*!
    A text edit whose copy, paste and drag and drop speak RTF, so that formats, pictures, lists and tables
    get from and to word processors.
*/
class RichTextEdit : public QTextEdit {
    Q_OBJECT

public:
    explicit RichTextEdit(QWidget* parent = nullptr);

    /*! Position of the character that is shown at \a point of the viewport; -1 where there is none. */
    int characterAt(const QPoint& point) const;

protected:
    /*! The selection as RTF in both flavours, as HTML and as plain text. */
    QMimeData* createMimeDataFromSelection() const override;
    /*! RTF and what QTextEdit takes; not RTF files, which are for the window to open. */
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
};

#endif
