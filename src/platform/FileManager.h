#pragma once

namespace blankwell {

/// The file managers that are known: their windows, their processes, and how their menus are
/// extended.
enum class FileManager { nautilus, dolphin, thunar, nemo, caja, pcmanfmQt };

} // namespace blankwell
