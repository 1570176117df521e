#pragma once

namespace zund::Error {

/// Reads one pending driver error; throws it as `std::runtime_error`: `name`, " error: ", the driver's
/// wording.
void CheckGLError(const char* name);

} // namespace zund::Error
