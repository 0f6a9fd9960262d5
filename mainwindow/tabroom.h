#pragma once

/// What every device tab can be told to do when the connection changes.
class TabRoom
{
public:
    virtual ~TabRoom() = default;

    /// Reads everything that the tab shows from the open device.
    virtual void reload() = 0;
    /// Empties what the tab shows of a device.
    virtual void clear() = 0;
    virtual void setWidgetsEnabled(bool enabled) = 0;
    /// Shows or hides what only hands with force sensing have.
    virtual void setForceSensing(bool /*present*/) {}
};
