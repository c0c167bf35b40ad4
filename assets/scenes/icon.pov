// The program's icon: the title's evening, its palm and its brass, small enough for 32 pixels.
// Flat pictures lie one behind the other along z; only palm, island and ring are solid.
#include "palette.inc"
#declare RS = seed(5);
#include "far_plants.inc"

camera { orthographic location <0, 0, -20> right x*2.4 up y*2.4 look_at 0 }
light_source { <-20, 24, -26> color rgb <1.15, 1, .8> }
light_source { <24, -4, -20> color rgb <.34, .38, .46> }
object { BrassHorizon }

#declare Horizon = -.14;
#macro Flat(R, G, B) pigment { C8(R, G, B) } finish { ambient 0 diffuse 0 emission 1 } #end

disc { <0, 0, 6>, z, 1.19 Flat(40, 24, 14) no_reflection }
disc {                                           // sky
  <0, 0, 5>, z, 1
  pigment {
    gradient y
    color_map { [0 C8(255, 206, 132)] [.30 C8(250, 214, 160)] [.62 C8(120, 166, 206)] [1 C8(46, 96, 168)] }
    scale 1.2 translate y*Horizon
  }
  finish { ambient 0 diffuse 0 emission 1 }
}
disc { <.44, .30, 4.9>, z, .21 Flat(255, 246, 206) }
intersection {                                   // sea
  cylinder { <0, 0, 4.7>, <0, 0, 4.8>, 1 }
  plane { y, Horizon }
  pigment {
    gradient y
    color_map { [0 C8(14, 56, 88)] [.6 C8(28, 104, 130)] [.93 C8(64, 164, 162)] [1 C8(120, 190, 180)] }
    scale (1 + Horizon) translate -y
  }
  finish { ambient 0 diffuse 0 emission 1 }
}
sphere { 0, 1 scale <.78, .25, .1> translate <-.02, -.47, 4> Flat(98, 196, 186) }
sphere {
  0, 1 scale <.66, .22, .5> translate <-.02, -.42, 3>
  pigment { C8(236, 208, 152) } finish { ambient .25 diffuse .85 }
}
sphere {
  0, 1 scale <.46, .20, .4> translate <-.04, -.33, 2.5>
  pigment { C8(122, 160, 62) } finish { ambient .2 diffuse .85 }
}
object { FarPalm scale <.56, .385, .56> rotate -z*4 translate <-.10, -.30, 1> }
torus { 1.03, .105 rotate x*90 texture { Brass } no_shadow }
