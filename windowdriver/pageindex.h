#pragma once

/// The pages of the window's tab widget, in their order.
enum PageIndex { BasicPage, SettingPage, RunPage, ForcePage, SequencePage };
