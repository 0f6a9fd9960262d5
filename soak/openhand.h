#pragma once

#include <QString>

class MainWindow;

/// Chooses the port, scans until a hand is listed, and opens it.
void openHand(MainWindow& window, const QString& port);
