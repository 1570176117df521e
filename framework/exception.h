#pragma once

// `tolv::Exception` is the framework's error type. It is written down beside the sync device, the lowest
// of its throwers, which may include no other folder.
#include "sync/exception.h" // IWYU pragma: export
