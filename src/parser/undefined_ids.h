#pragma once
namespace tamrix {
/// The conversion whose project state is read.
class Conversion;
}  // namespace tamrix

namespace tamrix::modUtilities {

/// Non-zero context IDs without a topic file (FileDefined false); zero-value IDs
/// are counted in zeroCount instead.
int UndefinedIDs(Conversion& wizard, int& zeroCount);

}  // namespace tamrix::modUtilities
