#ifndef ROWS_H
#define ROWS_H

#include <QtTest/QtTest>

#include <functional>
#include <tuple>
#include <vector>

/*! A value of a row; a QString is also made of a string in UTF-8. */
template <typename Type>
struct Value {
    typedef const Type& Parameter;
};

struct Text {
    Text() { }
    Text(const char* utf8) : text(QString::fromUtf8(utf8)) { }
    Text(const QString& string) : text(string) { }
    Text(QLatin1String latin1) : text(latin1) { }
    operator QString() const { return text; }

    QString text;
};

template <>
struct Value<QString> {
    typedef const Text& Parameter;
};

/*! The checks of the rows of the test that is running. */
inline std::vector<std::function<void()>>& rowChecks()
{
    static std::vector<std::function<void()>> checks;
    return checks;
}

inline void checkRow()
{
    QFETCH(int, row);
    rowChecks().at(std::size_t(row))();
}

/*!
    The check that each row of a test's data has to pass, and a function that adds a row:

        ORV_ROWS(words)
        {
            const Rows add([](const QByteArray& rtf, const QString& text) {
                QCOMPARE(read(rtf).text(), text);
            });
            add("one word", "{\\rtf1 word}", "word");
        }
*/
template <typename Check, typename Signature = decltype(&Check::operator())>
class Rows;

template <typename Check, typename... Parameters>
class Rows<Check, void (Check::*)(Parameters...) const> {
public:
    explicit Rows(Check check) : m_check(std::move(check))
    {
        rowChecks().clear();
        QTest::addColumn<int>("row");
    }

    void operator()(const QByteArray& name,
                    typename Value<std::decay_t<Parameters>>::Parameter... values) const
    {
        QTest::newRow(name.constData()) << int(rowChecks().size());
        rowChecks().push_back(
            [check = m_check, row = std::make_tuple(static_cast<std::decay_t<Parameters>>(values)...)] {
                std::apply(check, row);
            });
    }

private:
    Check m_check;
};

template <typename Check>
Rows(Check) -> Rows<Check>;

/*! A test with rows of data: what follows adds them. */
#define ORV_ROWS(name) \
    void name() \
    { \
        checkRow(); \
    } \
    void name##_data()

#endif
