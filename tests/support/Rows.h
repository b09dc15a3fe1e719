// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/Literals.h"

#include <QTest>
#include <QVector>

#include <tuple>

// A text of a row: literals are UTF-8.
struct RowText
{
    RowText(const char* literal)
        : value(QString::fromUtf8(literal))
    {
    }
    RowText(const QString& text)
        : value(text)
    {
    }
    QString value;
};

// A list of a row: a literal is its words.
struct RowList
{
    RowList(const char* text)
        : value(words(text))
    {
    }
    RowList(const QStringList& list)
        : value(list)
    {
    }
    QStringList value;
};

// What a row may give for a column, and what the column makes of it.
template <typename Column>
struct RowCell
{
    using Given = Column;
    static const Column& stored(const Column& given) { return given; }
};
template <>
struct RowCell<QString>
{
    using Given = RowText;
    static const QString& stored(const RowText& given) { return given.value; }
};
template <>
struct RowCell<QStringList>
{
    using Given = RowList;
    static const QStringList& stored(const RowList& given) { return given.value; }
};

// The names of the columns of the running test function.
inline QVector<const char*>& rowColumns()
{
    static QVector<const char*> names;
    return names;
}

// The rows of a test function's data: declared with the names of their columns, called once for
// each row with its name and its values, which convert to the columns' types.
template <typename... Columns>
class Rows
{
public:
    template <typename... Names>
    explicit Rows(Names... names)
    {
        static_assert(sizeof...(Names) == sizeof...(Columns), "one name for each column");
        rowColumns() = {names...};
        (QTest::addColumn<Columns>(names), ...);
    }
    void operator()(const char* name, const typename RowCell<Columns>::Given&... values) const
    {
        (QTest::newRow(name) << ... << RowCell<Columns>::stored(values));
    }
    // The same; the first value is the row's name, too.
    template <typename... Others>
    void of(const char* first, const Others&... others) const
    {
        (*this)(first, first, others...);
    }
};

// The value of the running row in the column of that number, which goes on to the next one.
template <typename Column>
Column fetchNext(int& column)
{
    const char* name = rowColumns().at(column++);
    return *static_cast<Column*>(QTest::qData(name, qMetaTypeId<Column>()));
}

// The values of the running row in the order of the columns, of the types that its Rows has:
// "const auto [text, count] = fetchRow<QString, int>();".
template <typename... Columns>
std::tuple<Columns...> fetchRow()
{
    int column = 0;
    return std::tuple<Columns...>{fetchNext<Columns>(column)...};
}
