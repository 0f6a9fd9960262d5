#include "stage.h"

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
constexpr int AwaitMs = 20000;
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

Stage::Stage(HandProcess& hands, QString folder, TourManner manner)
    : WindowDriver({hands.portName()}, Theme::applyStored),
      m_hands(hands),
      m_folder(std::move(folder)),
      m_manner(manner)
{
}

bool Stage::play(std::span<const Step> steps)
{
    int number = 0;
    for (const Step& step : steps) {
        m_stepName = QStringLiteral("%1-%2")
                         .arg(++number, 2, 10, QLatin1Char('0'))
                         .arg(QLatin1String(step.name));
        if (!playStep(step))
            return false;
    }
    return true;
}

bool Stage::playStep(const Step& step)
{
    QString seen = step.run(*this);
    takePicture({});
    const bool passed = m_complaints.isEmpty();
    if (!passed)
        seen = m_complaints.join(QLatin1String("; "));
    std::printf("%s %s: %s\n", passed ? "ok" : "FAILED",
                qPrintable(QString(m_stepName).replace(QLatin1Char('-'), QLatin1Char(' '))),
                qPrintable(seen));
    std::fflush(stdout);
    return passed;
}

void Stage::expect(const QString& what, const QString& seen, const QString& wanted)
{
    if (seen != wanted)
        complain(QStringLiteral("%1 is \"%2\", not \"%3\"").arg(what, seen, wanted));
}

void Stage::expectText(const QString& what, const QString& seen, const QString& wanted)
{
    if (english())
        expect(what, seen, wanted);
}

void Stage::click(const QString& button)
{
    if (!enabled(button))
        complain(QStringLiteral("%1 is disabled").arg(button));
    WindowDriver::click(button);
}

void Stage::withDialog(const std::function<void()>& open, DialogWatch::Answer answer)
{
    withDialogs(open, {std::move(answer)});
}

void Stage::withDialogs(const std::function<void()>& open, std::deque<DialogWatch::Answer> answers)
{
    m_answers = std::move(answers);
    open();
    if (!m_answers.empty())
        complain(QStringLiteral("%1 dialogs did not come up").arg(m_answers.size()));
    m_answers.clear();
}

void Stage::answer(QDialog& dialog)
{
    if (m_answers.empty()) {
        takePicture(QStringLiteral("-unexpected"), &dialog);
        complain(QStringLiteral("unexpected dialog \"%1\"").arg(textOf(dialog)));
        dialog.reject();
        return;
    }
    const DialogWatch::Answer answer = std::move(m_answers.front());
    m_answers.pop_front();
    answer(dialog);
}

void Stage::await(const QString& what, const std::function<bool()>& condition)
{
    const QDeadlineTimer deadline(AwaitMs);
    while (!condition()) {
        if (deadline.hasExpired()) {
            complain(QStringLiteral("waited in vain: ") + what);
            return;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents, EventSliceMs);
    }
}

QString Stage::askHands(const QString& command)
{
    const QString answer = m_hands.command(command);
    if (!answer.startsWith(QLatin1String("ok")))
        complain(QStringLiteral("the hands answered \"%1\" to \"%2\"").arg(answer, command));
    return answer.sliced(qMin(answer.size(), qsizetype{2})).trimmed();
}

void Stage::takePicture(const QString& suffix, QDialog* dialog)
{
    QPixmap picture = window()->grab();
    if (dialog) {
        QPainter painter(&picture);
        const QRect place(window()->mapFromGlobal(dialog->mapToGlobal(QPoint())), dialog->size());
        painter.drawPixmap(place.topLeft(), dialog->grab());
        painter.setPen(dialog->palette().color(QPalette::Mid));
        painter.drawRect(place);
    }
    const QString path = m_folder + QLatin1Char('/') + m_stepName + suffix + QStringLiteral(".png");
    if (!picture.save(path))
        complain(QStringLiteral("cannot write ") + path);
}

DialogWatch::Answer withFile(Stage& stage, const QString& name)
{
    return [&stage, name](QDialog& dialog) {
        chooseFile(dialog, name);
        stage.takePicture(QStringLiteral("-file"), &dialog);
    };
}

} // namespace vanto
