#pragma once

#include <QList>
#include <QObject>

class QWidget;

/// Keeps controls of one kind equally wide, also when texts, font or theme change.
class UniformWidth : public QObject
{
    Q_OBJECT
public:
    explicit UniformWidth(QList<QWidget*> widgets);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void align();

    QList<QWidget*> m_widgets;
};
