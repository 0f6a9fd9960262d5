#include "automaticbackup.h"

#include "deviceentry.h"
#include "interruption.h"
#include "parameterbackup.h"

#include <QCoreApplication>

namespace vanto
{

void AutomaticBackup::save(Tool& tool, Answer& answer)
{
    ParameterReader reader(tool.hand().target(), ParameterBackup::readOptions(
                                                     {}, QCoreApplication::applicationVersion()));
    reader.run([&](int done, int total) {
        tool.output().showProgress(done, total);
        if (Interruption::isRequested())
            reader.cancel();
    });
    tool.output().showProgress(0, 0);
    const ParameterBackup::Saved saved = ParameterBackup::save(reader);
    for (const QString& text : {saved.error, saved.missing})
        if (!text.isEmpty() && !answer.hasFailed()) // a lost port has been reported
            tool.output().error(text);
    if (saved.path.isEmpty())
        return;
    tool.output().note(QStringLiteral("The parameters have been saved in %1.").arg(saved.path));
    answer.data.insert(QStringLiteral("backup"), saved.path);
}

void AutomaticBackup::saveClosed(Tool& tool, Answer& answer)
{
    Answer opening;
    tool.hand().reportTo(&opening);
    if (!tool.options().node || *tool.options().node == AnyNode)
        opening.fail(ExitStatus::Usage, QStringLiteral("No node is given; use --node."));
    const bool isOpen = !opening.hasFailed() && tool.hand().open();
    if (isOpen) // reports its failures itself, a lost port too
        save(tool, answer);
    tool.hand().close();
    tool.hand().reportTo(&answer);
    if (!isOpen && opening.hasFailed())
        tool.output().error(ParameterBackup::failureText(opening.reason()));
}

} // namespace vanto
