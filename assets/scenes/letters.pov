// The title's letters, drawn from rounded bars of brass. The background stays transparent.
#include "palette.inc"
camera { orthographic location <0, 0, -20> right x*8 up y*2.4 look_at 0 }
light_source { <-20, 30, -30> color rgb <1.1, 1, .85> }
light_source { <30, -6, -20> color rgb <.2, .26, .4> }

object { BrassHorizon }

#declare W = .15;
#macro Bar(A, B, RadiusA, RadiusB) cone { A, RadiusA, B, RadiusB } sphere { A, RadiusA } sphere { B, RadiusB } #end

#declare LetterT = union {
  Bar(<-.55, .75, 0>, <.55, .75, 0>, W, W)
  Bar(<0, .75, 0>, <0, -.75, 0>, W, W*1.25)
  Bar(<-.62, .78, 0>, <-.66, .52, 0>, W*.8, W*.45)
  Bar(<.62, .78, 0>, <.66, .52, 0>, W*.8, W*.45)
}
#declare LetterO = torus { .66, W rotate x*90 scale <1, 1.15, 1> }
#declare LetterL = union {
  Bar(<-.35, .78, 0>, <-.35, -.75, 0>, W*1.2, W)
  Bar(<-.35, -.75, 0>, <.50, -.75, 0>, W, W)
  Bar(<.52, -.75, 0>, <.58, -.46, 0>, W*.9, W*.45)
}
#declare LetterV = union {
  Bar(<-.62, .78, 0>, <0, -.75, 0>, W*1.1, W*.95)
  Bar(<.62, .78, 0>, <0, -.75, 0>, W*1.1, W*.95)
}
#declare LetterA = union {
  Bar(<-.62, -.78, 0>, <0, .78, 0>, W*1.1, W*.95)
  Bar(<.62, -.78, 0>, <0, .78, 0>, W*1.1, W*.95)
  Bar(<-.38, -.22, 0>, <.38, -.22, 0>, W*.8, W*.8)
}

union {
  object { LetterT translate x*-2.95 }
  object { LetterO translate x*-1.42 }
  object { LetterL translate x*.08 }
  object { LetterV translate x*1.38 }
  object { LetterA translate x*2.82 }
  texture { Brass }
}
