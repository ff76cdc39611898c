#pragma once
namespace tamrix {
class Conversion;
}

namespace tamrix::modUtilities {

/// Non-zero context IDs without a topic file (FileDefined false); zero-value IDs
/// are counted in zeroCount instead.
int UndefinedIDs(Conversion& wizard, int& zeroCount);

}  // namespace tamrix::modUtilities
