// Whether this machine can decode the panel's videos, and what the user is told when it cannot.
#pragma once

#include "host/message_box.h"

#include <QString>

/// Whether a decoder for videos as panels have them was found. Where the back end can be asked about the kind
/// of the very file, that answer counts; a file that is no video is left to the player. Main thread.
bool VideoDecoderFound(const QString& file = {});

/// Looks for the decoder once the window is there, and offers to install it unless the user had that ignored.
void ProbeVideoDecoder(const AskUser& ask);

/// Tells that a video cannot be shown, and opens the decoder's folder if the user wants that.
void OfferVideoDecoder(const AskUser& ask);
