#pragma once

namespace vanto
{

/// The pages of the tab widget in their order.
enum PageIndex { BasicTab, SettingTab, RunTab, ForceTab, SequenceTab };

} // namespace vanto
