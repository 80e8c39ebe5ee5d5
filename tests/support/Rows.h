#pragma once

#include <QTest>
#include <initializer_list>
#include <tuple>

/// All columns and rows of a data-driven test, a line each: rows<int, QString>({{"name", {1, u"a"_s}}, ...}) in its
/// data function, const auto [number, text] = row<int, QString>() in the test itself.
template <typename... Columns>
void rows(std::type_identity_t<std::initializer_list<std::pair<const char *, std::tuple<Columns...>>>> all)
{
    QTest::addColumn<std::tuple<Columns...>>("row");
    for (const auto &[name, values] : all)
        QTest::newRow(name) << values;
}

template <typename... Columns>
std::tuple<Columns...> row()
{
    using Row = std::tuple<Columns...>;
    QFETCH(Row, row);
    return row;
}
