#pragma once

namespace tuner::bus {

// The radio service shares its bus name with the MCU service.
inline constexpr char kMcuService[] = "com.nilo.mcu";
inline constexpr char kRadioPath[] = "/RadioService";
inline constexpr char kMcuPath[] = "/McuService";
inline constexpr char kSystemService[] = "com.nilo.system";
inline constexpr char kSourcePath[] = "/SourceService";

// Upper bound for one call. About two dozen getters are read synchronously at
// start-up; against a service that holds the name but never answers they must
// all give up within a few seconds instead of D-Bus's default 25 s each.
inline constexpr int kCallTimeoutMs = 150;

} // namespace tuner::bus
