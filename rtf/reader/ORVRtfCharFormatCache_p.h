#ifndef ORVRTFCHARFORMATCACHE_P_H
#define ORVRTFCHARFORMATCACHE_P_H

#include <QtGui/QTextCharFormat>

#include <array>
#include <cstring>
#include <type_traits>

/*!
    Changes of character formats, the last of which are remembered with what came of them: a text says the
    same few words again and again. What is remembered also shares its data with the format that was made
    before, so that the document need not compare their properties to find out that it knows it.
*/
class ORVRtfCharFormatCache {
public:
    /*! Sets the property \a id of \a format. */
    template <typename Value>
    void set(QTextCharFormat& format, int id, Value value)
    {
        static_assert(std::is_arithmetic<Value>::value, "other values are not told apart by their bytes");
        quint64 bits = 0;
        std::memcpy(&bits, &value, sizeof value);
        apply(format, id, bits, [=](QTextCharFormat& changed) { changed.setProperty(id, value); });
    }

    /*! Clears the property \a id of \a format. */
    void clear(QTextCharFormat& format, int id)
    {
        apply(format, -id, 0, [=](QTextCharFormat& changed) { changed.clearProperty(id); });
    }

    /*!
        Has \a change change \a format, unless the outcome is remembered: what it does must depend on the
        format, \a id and \a value only. Each \a id stands for one kind of change.
    */
    template <typename Change>
    void apply(QTextCharFormat& format, int id, quint64 value, Change change)
    {
        if (recall(format, id, value))
            return;
        const QTextCharFormat before = format;
        change(format);
        remember(before, id, value, format);
    }

private:
    struct Step {
        int id = 0;
        quint64 value = 0;
        QTextCharFormat before;
        QTextCharFormat after;
    };
    /*! The last changes of some kinds, and the one that is to be replaced next. */
    struct Steps {
        std::array<Step, 4> steps;
        size_t next = 0;
    };

    Steps& stepsOf(int id) { return m_steps[unsigned(id) % m_steps.size()]; }
    bool recall(QTextCharFormat& format, int id, quint64 value);
    void remember(const QTextCharFormat& before, int id, quint64 value, const QTextCharFormat& after);

    std::array<Steps, 16> m_steps;
};

#endif
