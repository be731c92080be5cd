#ifndef FUZZINPUT_H
#define FUZZINPUT_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <cstddef>
#include <cstdint>

/*!
    The bytes of one fuzzing input, used up as decisions and as data.

    Decisions are taken from the end and data from the beginning, so that an RTF file is a useful input of a
    target that needs some decisions, too. When nothing is left, decisions are 0 and data is empty.
*/
class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size);

    bool isEmpty() const { return m_bytes.isEmpty(); }
    /*! 0 to \a bound - 1; \a bound is 256 at most. */
    int choice(int bound);
    bool flag() { return choice(2) == 1; }
    /*! Any int, small ones more often. */
    int integer();
    /*! Any double, sensible lengths in points more often than absurd ones. */
    double real();
    /*! The next bytes, \a longest at most. */
    QByteArray bytes(int longest);
    /*! Text of any UTF-16 units, \a longest at most, mostly plain characters. */
    QString text(int longest);
    /*! All that is left, but for \a kept bytes that stay for decisions. */
    QByteArray restBut(int kept);

private:
    int nextByte();

    QByteArray m_bytes;
};

#endif
