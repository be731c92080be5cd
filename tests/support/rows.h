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

/*!
    The columns of a test's data, and a function that adds a row of them:

        const Columns<QByteArray, QString> add("rtf", "text");
        add("one word", "{\\rtf1 word}", "word");
*/
template <typename... Types>
class Columns {
public:
    template <typename... Names>
    explicit Columns(Names... names)
    {
        static_assert(sizeof...(Names) == sizeof...(Types), "each column has a name");
        (QTest::addColumn<Types>(names), ...);
    }

    void operator()(const char* name, typename Value<Types>::Parameter... values) const
    {
        QTestData& row = QTest::newRow(name);
        (row << ... << static_cast<Types>(values));
    }
};

/*! Fetches up to eight columns: FETCH(QByteArray, rtf, QString, text); */
#define FETCH(...) \
    FETCH_CHOICE(__VA_ARGS__, FETCH_8, _, FETCH_7, _, FETCH_6, _, FETCH_5, _, FETCH_4, _, FETCH_3, _, \
                 FETCH_2, _, FETCH_1, _) \
    (__VA_ARGS__)
#define FETCH_CHOICE(a1, a2, b1, b2, c1, c2, d1, d2, e1, e2, f1, f2, g1, g2, h1, h2, choice, ...) choice
#define FETCH_1(type, name) QFETCH(type, name)
#define FETCH_2(type, name, ...) \
    QFETCH(type, name); \
    FETCH_1(__VA_ARGS__)
#define FETCH_3(type, name, ...) \
    QFETCH(type, name); \
    FETCH_2(__VA_ARGS__)
#define FETCH_4(type, name, ...) \
    QFETCH(type, name); \
    FETCH_3(__VA_ARGS__)
#define FETCH_5(type, name, ...) \
    QFETCH(type, name); \
    FETCH_4(__VA_ARGS__)
#define FETCH_6(type, name, ...) \
    QFETCH(type, name); \
    FETCH_5(__VA_ARGS__)
#define FETCH_7(type, name, ...) \
    QFETCH(type, name); \
    FETCH_6(__VA_ARGS__)
#define FETCH_8(type, name, ...) \
    QFETCH(type, name); \
    FETCH_7(__VA_ARGS__)

#endif
