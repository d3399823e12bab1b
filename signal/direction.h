// The direction of a transform, for all of them.
#pragma once

namespace vor {

// Forward: X[k] = sum of x[j] W^(jk) with W = exp(-2 pi i / n). The tables hold W; the backward transform
// conjugates what it reads.
enum class Direction { forward, backward };

} // namespace vor
