#ifndef TEXTTIPS_H
#define TEXTTIPS_H

#include <QObject>

class RichTextEdit;

/*! Tool tips over the text: what a note says, and where a link leads. */
class TextTips : public QObject {
    Q_OBJECT

public:
    explicit TextTips(RichTextEdit* edit);

    /*! The tool tip for the character at \a position, as plain text; empty for none. */
    QString textAt(int position) const;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    RichTextEdit* m_edit;
};

#endif
