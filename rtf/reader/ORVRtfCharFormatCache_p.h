#ifndef ORVRTFCHARFORMATCACHE_P_H
#define ORVRTFCHARFORMATCACHE_P_H

#include <QtGui/QTextCharFormat>

#include <array>
#include <cstring>
#include <type_traits>

/*!
    Caches the last changes of character formats with their results, since a document repeats a few of them. A
    cached result also shares its data with the format that was made before, so that a document that has one
    need not compare the properties of the other.
*/
class ORVRtfCharFormatCache {
public:
    /*! Sets the property \a id of \a format. */
    template <typename Value>
    void set(QTextCharFormat& format, int id, Value value)
    {
        static_assert(std::is_arithmetic<Value>::value, "other values are not identified by their bytes");
        quint64 bits = 0;
        std::memcpy(&bits, &value, sizeof value);
        apply(format, {Set, id, bits}, [=](QTextCharFormat& changed) { changed.setProperty(id, value); });
    }

    /*! Sets the property \a id of \a format as \a change does, whose outcome depends on \a value only. */
    template <typename Change>
    void set(QTextCharFormat& format, int id, quint64 value, Change change)
    {
        apply(format, {Set, id, value}, change);
    }

    /*! Clears the property \a id of \a format. */
    void clear(QTextCharFormat& format, int id)
    {
        apply(format, {Clear, id, 0}, [=](QTextCharFormat& changed) { changed.clearProperty(id); });
    }

private:
    enum Kind { NoChange, Set, Clear };
    struct Key {
        Kind kind = NoChange;
        int property = 0;
        quint64 value = 0;

        bool operator==(const Key& other) const
        {
            return kind == other.kind && property == other.property && value == other.value;
        }
    };
    struct Entry {
        Key key;
        QTextCharFormat before;
        QTextCharFormat after;
    };

    template <typename Change>
    void apply(QTextCharFormat& format, const Key& key, Change change)
    {
        if (const Entry* const cached = find(format, key)) {
            format = cached->after;
            return;
        }
        Entry& entry = m_entries[m_next];
        m_next = (m_next + 1) % m_entries.size();
        entry.key = key;
        entry.before = format;
        change(format);
        entry.after = format;
    }

    const Entry* find(const QTextCharFormat& format, const Key& key) const;

    // The oldest is replaced next.
    std::array<Entry, 16> m_entries;
    size_t m_next = 0;
};

#endif
