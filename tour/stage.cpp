#include "stage.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>

#include <cstdio>

namespace
{
constexpr int AwaitMs = 20000;
constexpr int EventSliceMs = 10;
constexpr int AcceptAgainMs = 100;

QString textOf(const QDialog& dialog)
{
    QStringList texts;
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        texts.append(label->text());
    texts.removeAll(QString());
    return texts.join(QLatin1Char(' '));
}
} // namespace

Stage::Stage(MainWindow& window, HandProcess& hands, QString folder, TourManner manner)
    : m_window(window),
      m_hands(hands),
      m_folder(std::move(folder)),
      m_manner(manner),
      m_dialogs([this](QDialog& dialog) {
          takePicture(QStringLiteral("-unexpected"), &dialog);
          complain(QStringLiteral("unexpected dialog \"%1\"").arg(textOf(dialog)));
      })
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
    auto& found = find<QPushButton>(button);
    if (!found.isEnabled())
        complain(QStringLiteral("%1 is disabled").arg(button));
    found.click();
}

void Stage::withDialog(const std::function<void()>& open, DialogWatch::Answer answer)
{
    withDialogs(open, {std::move(answer)});
}

void Stage::withDialogs(const std::function<void()>& open, std::deque<DialogWatch::Answer> answers)
{
    m_dialogs.answerNext(std::move(answers));
    open();
    if (m_dialogs.waiting() > 0)
        complain(QStringLiteral("%1 dialogs did not come up").arg(m_dialogs.waiting()));
    m_dialogs.forget();
}

QString Stage::field(const QString& lineEdit) const
{
    return find<QLineEdit>(lineEdit).text();
}

QString Stage::statusText() const
{
    return m_window.statusBar()->currentMessage();
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
    QPixmap picture = m_window.grab();
    if (dialog) {
        QPainter painter(&picture);
        const QRect place(m_window.mapFromGlobal(dialog->mapToGlobal(QPoint())), dialog->size());
        painter.drawPixmap(place.topLeft(), dialog->grab());
        painter.setPen(dialog->palette().color(QPalette::Mid));
        painter.drawRect(place);
    }
    const QString path = m_folder + QLatin1Char('/') + m_stepName + suffix + QStringLiteral(".png");
    if (!picture.save(path))
        complain(QStringLiteral("cannot write ") + path);
}

DialogWatch::Answer chooseFile(Stage& stage, const QString& name)
{
    return [&stage, name](QDialog& dialog) {
        // Typed, for selectFile() has no effect while the folder is still being read; and while it
        // is read, the dialog may not let itself be accepted.
        auto* field = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        auto* again = new QTimer(&dialog);
        QObject::connect(again, &QTimer::timeout, &dialog, [&dialog, field, name] {
            field->setText(name);
            dialog.accept();
        });
        field->setText(name);
        stage.takePicture(QStringLiteral("-file"), &dialog);
        again->start(AcceptAgainMs);
        dialog.accept();
    };
}
