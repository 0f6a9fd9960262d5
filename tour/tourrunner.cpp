#include "tourrunner.h"

#include "theme.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDialog>
#include <QLabel>
#include <QPainter>

#include <cstdio>

namespace vanto
{

namespace
{
constexpr int WaitMs = 60000;
constexpr int EventSliceMs = 10;

QString textOf(const QDialog& dialog)
{
    QStringList texts;
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        texts.append(label->text());
    texts.removeAll(QString());
    return texts.join(QLatin1Char(' '));
}
} // namespace

TourRunner::TourRunner(HandProcess& hands, QString folder, TourOptions options)
    : WindowDriver({hands.portName()}, Theme::applyStored),
      m_hands(hands),
      m_folder(std::move(folder)),
      m_options(options)
{
}

bool TourRunner::run(std::span<const Step> steps)
{
    int number = 0;
    for (const Step& step : steps) {
        m_stepName = QStringLiteral("%1-%2")
                         .arg(++number, 2, 10, QLatin1Char('0'))
                         .arg(QLatin1String(step.name));
        if (!runStep(step))
            return false;
    }
    return true;
}

bool TourRunner::runStep(const Step& step)
{
    QString summary = step.run(*this);
    saveScreenshot({});
    const bool passed = m_failures.isEmpty();
    if (!passed)
        summary = m_failures.join(QLatin1String("; "));
    std::printf("%s %s: %s\n", passed ? "ok" : "FAILED",
                qPrintable(QString(m_stepName).replace(QLatin1Char('-'), QLatin1Char(' '))),
                qPrintable(summary));
    std::fflush(stdout);
    return passed;
}

void TourRunner::expect(const QString& what, const QString& actual, const QString& expected)
{
    if (actual != expected)
        addFailure(QStringLiteral("%1 is \"%2\", not \"%3\"").arg(what, actual, expected));
}

void TourRunner::expectText(const QString& what, const QString& actual, const QString& expected)
{
    if (english())
        expect(what, actual, expected);
}

void TourRunner::click(const QString& button)
{
    if (!enabled(button))
        addFailure(QStringLiteral("%1 is disabled").arg(button));
    WindowDriver::click(button);
}

void TourRunner::withDialog(const std::function<void()>& open, DialogWatch::Answer answer)
{
    withDialogs(open, {std::move(answer)});
}

void TourRunner::withDialogs(const std::function<void()>& open,
                             std::deque<DialogWatch::Answer> answers)
{
    m_answers = std::move(answers);
    open();
    if (!m_answers.empty())
        addFailure(QStringLiteral("%1 dialogs were not shown").arg(m_answers.size()));
    m_answers.clear();
}

void TourRunner::answer(QDialog& dialog)
{
    if (dialog.objectName() == QLatin1String("taskDialog"))
        return; // shows progress and ends by itself
    if (m_answers.empty()) {
        saveScreenshot(QStringLiteral("-unexpected"), &dialog);
        addFailure(QStringLiteral("unexpected dialog \"%1\"").arg(textOf(dialog)));
        dialog.reject();
        return;
    }
    const DialogWatch::Answer answer = std::move(m_answers.front());
    m_answers.pop_front();
    answer(dialog);
}

void TourRunner::waitFor(const QString& what, const std::function<bool()>& condition)
{
    const QDeadlineTimer deadline(WaitMs);
    while (!condition()) {
        if (deadline.hasExpired()) {
            addFailure(QStringLiteral("time-out: ") + what);
            return;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents, EventSliceMs);
    }
}

QString TourRunner::command(const QString& line)
{
    const QString answer = m_hands.command(line);
    if (!answer.startsWith(QLatin1String("ok")))
        addFailure(QStringLiteral("the hands answered \"%1\" to \"%2\"").arg(answer, line));
    return answer.sliced(qMin(answer.size(), qsizetype{2})).trimmed();
}

void TourRunner::saveScreenshot(const QString& suffix, QWidget* popup)
{
    QPixmap image = window()->grab();
    if (popup) {
        QPainter painter(&image);
        const QRect place(window()->mapFromGlobal(popup->mapToGlobal(QPoint())), popup->size());
        painter.drawPixmap(place.topLeft(), popup->grab());
        painter.setPen(popup->palette().color(QPalette::Mid));
        painter.drawRect(place);
    }
    const QString path = m_folder + QLatin1Char('/') + m_stepName + suffix + QStringLiteral(".png");
    if (!image.save(path))
        addFailure(QStringLiteral("cannot write ") + path);
}

DialogWatch::Answer answerWithFile(TourRunner& tour, const QString& name)
{
    return [&tour, name](QDialog& dialog) {
        chooseFile(dialog, name);
        tour.saveScreenshot(QStringLiteral("-file"), &dialog);
    };
}

} // namespace vanto
