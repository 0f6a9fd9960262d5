#pragma once

#include "command.h"

#include <QByteArrayView>

namespace vanto
{

/// One line of batch: NODE COMMAND [ARGUMENTS], separated by blanks; a '#' at the beginning makes
/// it a comment.
struct BatchLine {
    std::optional<std::uint8_t> node;
    const Command* command = nullptr; ///< null: empty line, or an error
    Arguments arguments;
    QString error;
};

/// Pure.
BatchLine parseBatchLine(QByteArrayView text);

} // namespace vanto
