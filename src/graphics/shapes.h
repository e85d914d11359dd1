// Lines, triangles and capsules on the WorkSurface, and the degree tables behind them. Engine thread.
#pragma once

#include <cstdint>

namespace panel {

/// Sine and cosine of any whole number of degrees, from tables of six decimal places.
float SinDeg(int degrees);
float CosDeg(int degrees);
/// Tangent of 0..45 whole degrees.
float TanDeg(int degrees);

/// A line that plots max(|dx|, |dy|) + 2 pixels: the start point comes twice.
void DrawLine(int x0, int y0, int x1, int y1, std::uint32_t word);
/// `thickness` lines, each a pixel below the one before.
void DrawThickLine(int x0, int y0, int x1, int y1, std::uint32_t word, int thickness);
void FillTriangle(int x0, int y0, int x1, int y1, int x2, int y2, std::uint32_t word);

/// Distance in pixels from (px, py) to the round-ended segment from a to b of radius r; negative inside.
float CapsuleDistance(float px, float py, float ax, float ay, float bx, float by, float r);
/// A smoothed capsule from a to b of radius r.
void DrawCapsule(float ax, float ay, float bx, float by, float r, std::uint32_t word);

} // namespace panel
