// imageAnimation: plays a run of pictures in a fixed rectangle, as the value of a control word tells. Engine
// thread, but for the counting of ticks.
#pragma once

#include "graphics/image_row.h"
#include "pages/parameters.h"
#include "store/row_table.h"
#include "store/shared.h"

#include <cstddef>
#include <cstdint>

namespace panel {

enum class AnimationPhase : std::uint8_t {
    Nothing = 0,  // nothing of the widget is on the screen
    Playing = 1,  // frames are shown, or the last one stays
    FirstHeld = 2 // frame 0 is held
};

/// One widget of the page. Names of values are those of the words that command it.
struct AnimationRow {
    std::uint8_t InList = 0;
    std::uint32_t FrameAddress = 0; // of the frame records in the image
    std::uint32_t FrameCount = 0;
    std::uint16_t ControlAddress = 0;
    std::uint16_t X = 0, Y = 0, Width = 0, Height = 0; // px on the panel
    std::uint16_t SequenceId = 0;
    std::uint8_t HoldFirst = 0; // 1: idle means to go back to frame 0
    std::uint8_t Delay = 0;     // ticks between two frames
    Shared<std::uint32_t> TickCount{0};
    std::uint32_t FrameIndex = 0; // the next frame
    std::uint32_t FrameOnShow = 0;
    std::uint16_t LoopValue = 0, OnceValue = 0, IdleValue = 0, HideValue = 0;
    AnimationPhase Phase = AnimationPhase::Nothing;
    std::uint16_t DoneAddress = 0, DoneValue = 0; // the word set when a single play ends
    std::uint8_t Shown = 0;                       // 1 while a picture of the widget is on the screen
    std::uint16_t Group = 0;                      // drawn over each frame
};

/// A run of frames in the image: where their records lie, and how many there are.
struct ImageSequence {
    std::uint32_t FrameAddress = 0;
    std::uint32_t FrameCount = 0;
};
inline constexpr std::uint32_t SequenceRowBytes = 8;
inline constexpr std::uint32_t FrameRecordBytes = 16;
ImageSequence ReadSequence(std::uint16_t id);
/// The picture of the frame record at a byte address of the image.
ImageRow ReadFrame(std::uint32_t address);
/// Whether frames are drawn that have a picture of that format.
bool CanBeFrame(std::uint8_t imageFormat);

/// The animations of the page on show, in stream order; a page holds at most 15.
inline RowTable<AnimationRow, 15> AnimationTable;
inline std::size_t AnimationCursor = 0;
/// A tick has passed. The tick raises it, AnimationTick() clears it.
inline Shared<std::uint8_t> AnimationFlag{0};

/// Appends the row of a record and shows its first state.
void AddAnimation(const Parameters& p);
void ForgetAnimations();

/// Gives every row a tick of 10 ms. Main thread.
void CountAnimationTicks();
/// Steps the rows whose delay is over. Once a cycle.
void AnimationTick();
/// Obeys the control word: shows the next frame, holds or hides. May end a play by changing its own control
/// word and setting a word of the store, even one that shows another page.
void StepAnimation(AnimationRow& row);

/// The refresh of one record; a group of an animation at rest is drawn anew when it changed.
void RefreshAnimation(std::uint16_t page, const Parameters& p, bool blockChanged);
/// The same test and drawing for all rows.
void RepaintAnimationGroups(std::uint16_t page);
void RepaintAnimationGroup(std::uint16_t page, AnimationRow& row);

/// Whether a picture of an animation is on show at this place of the panel. Never on small chips. What lies
/// behind a widget there is on the TextSurface.
bool IsUnderAnimation(int x, int y);

} // namespace panel
