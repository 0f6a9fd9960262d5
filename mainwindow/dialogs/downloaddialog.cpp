#include "downloaddialog.h"

#include "program.h"

#include <QLocale>

#include <chrono>

namespace vanto
{

namespace
{
constexpr std::chrono::milliseconds ShownAfter{1000};
constexpr int FullRange = 1000;
} // namespace

DownloadDialog::DownloadDialog(QWidget* window, const QString& text)
    : QProgressDialog(window), m_text(text)
{
    setObjectName(QStringLiteral("downloadDialog"));
    setWindowTitle(Program::title());
    setWindowModality(Qt::NonModal);
    setAutoClose(false);
    setAutoReset(false);
    setLabelText(text);
    setRange(0, 0); // busy until the size is known
    setMinimumDuration(static_cast<int>(ShownAfter.count()));
}

void DownloadDialog::showProgress(qint64 received, qint64 total)
{
    const QLocale locale;
    if (total <= 0) {
        setLabelText(m_text + QLatin1Char('\n') + locale.formattedDataSize(received));
        return;
    }
    setLabelText(
        tr("%1\n%2 of %3")
            .arg(m_text, locale.formattedDataSize(received), locale.formattedDataSize(total)));
    setMaximum(FullRange);
    setValue(static_cast<int>(received * FullRange / total));
}

} // namespace vanto
