// A house for the world: Kind, LX and LZ as house.inc wants them, in a picture of Height rows. The southern corner of
// its ground stands at the picture's foot, so that every field's strip can be cut from one render.
#include "iso.inc"
#declare PaneGlow = 1.1;                         // a dim light by day, but the night darkens whole pictures
#include "house.inc"

IsoCamera((LX + LZ)*38, Height, (LX + LZ)*19, Height - .5 - (LX + LZ)*9)
Show(House)
