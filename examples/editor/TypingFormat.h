#ifndef TYPINGFORMAT_H
#define TYPINGFORMAT_H

#include <QObject>

class QTextEdit;

/*! Keeps links and notes from growing by what is typed behind them. */
class TypingFormat : public QObject {
    Q_OBJECT

public:
    explicit TypingFormat(QTextEdit* edit);

private:
    void leaveEndedTexts();

    QTextEdit* m_edit;
};

#endif
