#ifndef ORVRTF_WORDS_H
#define ORVRTF_WORDS_H

#include <QString>
#include <QVector>

class Symbols;

/*! A word, a sign, or a character of white space, in a text. */
struct Word {
    int begin;
    int end;
    /*! Whether it has letters or digits. */
    bool isWord;
};

/*! Texts as the words that they are compared by. */
namespace Words {

/*!
    All of \a text, in order. Each character that is written without blanks around it, as in Chinese, is a word of its
    own.
*/
QVector<Word> of(const QString& text);

/*! The number of words, without signs, in \a text. */
int count(const QString& text);

/*! The numbers in \a symbols of the words, without signs, of \a text. */
QVector<int> numbers(const QString& text, Symbols* symbols);

} // namespace Words

#endif
