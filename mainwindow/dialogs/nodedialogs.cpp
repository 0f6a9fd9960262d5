#include "nodedialogs.h"

#include "program.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>

namespace vanto
{

namespace
{
constexpr int LastNode = 255;

QString text(const char* source)
{
    return QCoreApplication::translate("NodeDialogs", source);
}

/// A dialog with a form, a line for what is wrong, and OK and Cancel.
class FormDialog : public QDialog
{
public:
    explicit FormDialog(QWidget* parent) : QDialog(parent)
    {
        setWindowTitle(Program::title());
        m_form = new QFormLayout(this);
        m_complaint = new QLabel(this);
        m_buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
        connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    }

    /// Shows the dialog until `problem` finds none or the user cancels. True if accepted.
    bool ask(const std::function<QString()>& problem)
    {
        m_form->addRow(m_complaint);
        m_form->addRow(m_buttons);
        connect(m_buttons, &QDialogButtonBox::accepted, this, [this, problem] {
            m_complaint->setText(problem());
            if (m_complaint->text().isEmpty())
                accept();
        });
        return exec() == Accepted;
    }

    QFormLayout* form() const { return m_form; }

private:
    QFormLayout* m_form;
    QLabel* m_complaint;
    QDialogButtonBox* m_buttons;
};
} // namespace

std::optional<HandScan::Range> NodeDialogs::openNode(QWidget* parent,
                                                     const HandScan::Range& suggested)
{
    FormDialog dialog(parent);
    auto* node = new QLineEdit(QString::number(suggested.first), &dialog);
    node->setObjectName(QStringLiteral("lineEdit_Node"));
    node->selectAll();
    auto* protocol = new QComboBox(&dialog);
    protocol->setObjectName(QStringLiteral("comboBox_Protocol"));
    protocol->addItem(text(QT_TRANSLATE_NOOP("NodeDialogs", "Both")));
    protocol->addItem(QStringLiteral("Modbus RTU"), PROTOCOL_TYPE_MODBUS_RTU);
    protocol->addItem(QStringLiteral("SerialCtrl"), PROTOCOL_TYPE_SERIALCTRL);
    if (suggested.protocol)
        protocol->setCurrentIndex(protocol->findData(*suggested.protocol));
    dialog.form()->addRow(text(QT_TRANSLATE_NOOP("NodeDialogs", "Node (decimal or 0x...):")), node);
    dialog.form()->addRow(text(QT_TRANSLATE_NOOP("NodeDialogs", "Protocol:")), protocol);
    HandScan::Range range;
    const auto problem = [&]() -> QString {
        bool isNumber = false;
        const int base =
            node->text().trimmed().startsWith(QLatin1String("0x"), Qt::CaseInsensitive) ? 16 : 10;
        range.first = range.last = node->text().trimmed().toInt(&isNumber, base);
        range.protocol.reset();
        if (protocol->currentIndex() > 0)
            range.protocol = static_cast<PROTOCOL_TYPE>(protocol->currentData().toInt());
        if (!isNumber || range.first < 0 || range.first > LastNode)
            return text(QT_TRANSLATE_NOOP("NodeDialogs", "Enter a number from 0 to 255."));
        if (range.first != 0 || range.protocol == PROTOCOL_TYPE_SERIALCTRL)
            return {};
        return text(QT_TRANSLATE_NOOP(
            "NodeDialogs", "Node 0 is available only over SerialCtrl. Choose this protocol."));
    };
    return dialog.ask(problem) ? std::optional(range) : std::nullopt;
}

std::optional<HandScan::Range> NodeDialogs::scanRange(QWidget* parent,
                                                      const HandScan::Range& current)
{
    FormDialog dialog(parent);
    const auto addBox = [&dialog](const char* name, const QString& label, int value) {
        auto* box = new QSpinBox(&dialog);
        box->setObjectName(QLatin1String(name));
        box->setRange(1, LastNode);
        box->setValue(value);
        dialog.form()->addRow(label, box);
        return box;
    };
    const auto* first = addBox(
        "spinBox_FirstNode", text(QT_TRANSLATE_NOOP("NodeDialogs", "First node:")), current.first);
    const auto* last = addBox("spinBox_LastNode",
                              text(QT_TRANSLATE_NOOP("NodeDialogs", "Last node:")), current.last);
    const auto problem = [&]() -> QString {
        return first->value() <= last->value()
                   ? QString()
                   : text(QT_TRANSLATE_NOOP("NodeDialogs",
                                            "The last node must not be below the first one."));
    };
    if (!dialog.ask(problem))
        return {};
    return HandScan::Range{first->value(), last->value()};
}

} // namespace vanto
