#pragma once

#include "handcall.h"
#include "handcommands.h"

#include <QStringList>
#include <QTest>

namespace vanto
{

// Operations as rows of a table. A text gives the arguments, e.g. "1 500,600 -" for a number, an
// array and a null output; another text receives the result and the outputs.

inline constexpr std::uint8_t HandNode = 2;

template<class T>
class Argument
{
    using Value = std::remove_const_t<std::remove_pointer_t<T>>;
    static constexpr bool IsOutput = std::is_same_v<T, Value*>;
    static constexpr auto Untouched = Value(IsOutput ? 0x77 : 0);

public:
    explicit Argument(QStringList& inputs)
    {
        m_values.fill(Untouched);
        m_isNull = IsOutput && inputs.value(0) == u"-";
        if (IsOutput && !m_isNull)
            return;
        auto value = m_values.begin();
        for (const QString& word : inputs.takeFirst().split(u','))
            *value++ = static_cast<Value>(word.toDouble());
    }

    T pass()
    {
        if constexpr (std::is_pointer_v<T>)
            return m_isNull ? nullptr : m_values.data();
        else
            return m_values[0];
    }

    /// The values that were written to an output.
    QString text() const
    {
        QString values;
        for (std::size_t i = 0; IsOutput && !m_isNull && i < m_values.size(); ++i) {
            if (m_values[i] != Untouched)
                values += (values.isEmpty() ? u' ' : u',') + QString::number(m_values[i]);
        }
        return values;
    }

private:
    std::array<Value, 16> m_values;
    bool m_isNull;
};

template<class... Arguments, class Target, class Operation>
QString perform(Target* target, Operation operation, const char* inputs)
{
    QStringList words = QString::fromLatin1(inputs).split(u' ', Qt::SkipEmptyParts);
    std::tuple<Argument<Arguments>...> arguments{Argument<Arguments>(words)...};
    const auto run = [&](auto&... argument) {
        const auto result = std::invoke(operation, target, HandNode, argument.pass()...);
        return (QString::number(result) + ... + argument.text());
    };
    return std::apply(run, arguments);
}

template<auto Operation>
struct Call;

template<class Target, class... Arguments,
         std::uint8_t (Target::*Operation)(std::uint8_t, Arguments...)>
struct Call<Operation> {
    static QString with(Target* target, const char* inputs)
    {
        return perform<Arguments...>(target, Operation, inputs);
    }
};

template<class Target, class... Arguments,
         std::uint32_t (*Operation)(Target*, std::uint8_t, Arguments...)>
struct Call<Operation> {
    static QString with(Target* target, const char* inputs)
    {
        return perform<Arguments...>(target, Operation, inputs);
    }
};

/// Name and call of an operation of the adapter.
#define OPERATION(name) #name, Call < &VantoProtocol::name> ::with

/// One data row per entry of a table; the test fetches it as `row`.
template<class Row, std::size_t N>
void addRows(const Row (&table)[N])
{
    QTest::addColumn<const Row*>("row");
    for (const Row& row : table) {
        if constexpr (requires { row.inputs; })
            QTest::addRow("%s %s", row.name, row.inputs) << &row;
        else
            QTest::newRow(row.name) << &row;
    }
}

} // namespace vanto
