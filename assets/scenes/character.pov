// A walking islander: Frame 0 to 4 of the cycle, Direction 0 (north, away from the viewer) to 7, clockwise.
// People are 1.3 units tall: a head just passes under a door's lintel.
#include "iso.inc"
#ifndef (Frame) #declare Frame = 0; #end
#ifndef (Direction) #declare Direction = 4; #end

// ---- clothes -------------------------------------------------------------------------------
#declare Skin = texture {
  pigment { C8(238, 184, 144) } finish { ambient 0 diffuse .85, .1 specular .08 roughness .08 }
}
#macro Cloth(R, G, B)
  texture { pigment { C8(R, G, B) } normal { bumps .12 scale .03 } finish { ambient 0 diffuse .88 } }
#end
#macro Leather(R, G, B)
  texture { pigment { C8(R, G, B) } finish { ambient 0 diffuse .85 specular .18 roughness .05 } }
#end
#declare Vest = Cloth(58, 116, 184)
#declare Sleeve = Cloth(246, 236, 212)
#declare Scarf = Cloth(206, 62, 52)
#declare Hair = Cloth(136, 84, 40)
#declare Trousers = Cloth(132, 106, 82)
#declare Boot = Leather(110, 74, 46)
#declare Strap = Leather(120, 80, 44)

// ---- the walk ------------------------------------------------------------------------------
// A field takes four frames. To the four corners it is longer by half, so legs swing wider; a swing that did not let
// the feet slide at all would look like running.
#declare Stride = (mod(Direction, 2) = 0 ? 33 : 28);         // degrees a leg swings to either side
#declare HeadScale = 1.24;                       // larger than life, or no face is left
#declare BodyScale = .90;
#declare Phase = 2*pi*Frame/5;
#macro HipAngle(P) (Stride*sin(P)) #end
#macro KneeAngle(P) (4 + Stride*1.4*pow(max(0, cos(P + .35)), 1.6)) #end
// Down, swung forward (+z) by an angle.
#macro Swung(A) <0, -cos(radians(A)), sin(radians(A))> #end

#declare Thigh = .335;
#declare Shin = .335;
#declare HipWidth = .082;
#declare LeftHip = HipAngle(Phase);
#declare RightHip = HipAngle(Phase + pi);
#declare LeftKnee = KneeAngle(Phase);
#declare RightKnee = KneeAngle(Phase + pi);
#declare LeftAnkle = Swung(LeftHip)*Thigh + Swung(LeftHip - LeftKnee)*Shin;
#declare RightAnkle = Swung(RightHip)*Thigh + Swung(RightHip - RightKnee)*Shin;
#declare HipHeight = .055 - min(LeftAnkle.y, RightAnkle.y);  // the lower foot stands
#declare Twist = 7*sin(Phase);
#declare ArmSwing = 24*sin(Phase);

// ---- body ----------------------------------------------------------------------------------
#macro Segment(A, RadiusA, B, RadiusB) cone { A, RadiusA, B, RadiusB } sphere { A, RadiusA } sphere { B, RadiusB } #end

#macro Leg(Side, Hip, Knee)
  #local H = <Side*HipWidth, HipHeight, 0>;
  #local K = H + Swung(Hip)*Thigh;
  #local A = K + Swung(Hip - Knee)*Shin;
  union { Segment(H, .088, K, .072) texture { Trousers } }
  union { Segment(K, .070, A + (K - A)*.45, .066) texture { Trousers } }
  union {
    Segment(A + (K - A)*.48, .076, A, .058)
    union {
      sphere { 0, 1 scale <.058, .050, .07> }
      Segment(<0, -.01, .0>, .052, <0, -.018, .105>, .042)
      rotate x*-(Hip - Knee)*.55 translate A
    }
    texture { Boot }
  }
#end

#macro Arm(Side, Angle, Elbow)
  #local S = <Side*.168, .395, 0>;
  #local E = S + vrotate(Swung(Angle)*.235, z*Side*9);
  #local W = E + vrotate(Swung(Angle + Elbow)*.20, z*Side*3);
  union { Segment(S, .074, E, .062) Segment(E, .062, W, .054) texture { Sleeve } }
  sphere { 0, 1 scale <.048, .060, .052> translate W + Swung(Angle + Elbow)*.045 texture { Skin } }
#end

#declare Eye = sphere { 0, 1 scale <.017, .024, .014> pigment { C8(34, 26, 24) } finish { ambient 0 diffuse .6 } }
#declare Head = union {
  sphere { 0, 1 scale <.098, .122, .108> texture { Skin } }
  sphere { <0, -.05, .035>, .074 texture { Skin } }
  sphere { <0, -.018, .112>, .022 texture { Skin } }
  sphere { <.098, -.01, 0>, .026 texture { Skin } }
  sphere { <-.098, -.01, 0>, .026 texture { Skin } }
  object { Eye translate <.042, .020, .087> }
  object { Eye translate <-.042, .020, .087> }
  difference {
    sphere { 0, 1 scale <.118, .136, .124> translate <0, .022, -.012> }
    plane { y, 0 rotate x*-32 translate <0, .058, .03> }
    texture { Hair }
  }
  sphere { 0, 1 scale <.110, .10, .075> translate <0, -.01, -.062> texture { Hair } }
}

#declare UpperBody = union {                     // its origin is the hip
  blob {
    threshold .4
    sphere { 0, .34, 1 scale <.74, .85, .56> translate <0, .04, 0> }
    sphere { 0, .34, 1 scale <.74, .85, .55> translate <0, .17, 0> }
    sphere { 0, .34, 1 scale <.86, .80, .58> translate <0, .31, 0> }
    sphere { 0, .15, .8 translate <-.13, .37, 0> }
    sphere { 0, .15, .8 translate <.13, .37, 0> }
    texture { Vest }
  }
  cone { <0, .40, 0>, .07, <0, .50, .01>, .055 texture { Skin } }
  torus { .082, .040 scale <1, 1, .95> rotate x*6 translate <0, .452, .005> texture { Scarf } }
  Segment(<.03, .43, -.10>, .034, <.05, .27, -.165>, .026)
  cylinder { <0, .025, 0>, <0, .075, 0>, .174 scale <1, 1, .80> texture { Strap } }
  box { <-.03, .02, .125>, <.03, .08, .148> pigment { C8(226, 190, 96) } finish { ambient 0 diffuse .7 specular .6 } }
  torus { .225, .020 rotate x*90 scale <.70, 1.15, 1> rotate y*90 rotate z*34 translate <.0, .21, 0> texture { Strap } }
  union {                                        // a satchel
    superellipsoid { <.35, .35> scale <.045, .085, .105> translate <.205, -.01, -.03> }
    texture { Strap }
  }
  Arm(-1, -ArmSwing, 28)
  Arm(1, ArmSwing, 28)
  object { Head scale HeadScale rotate x*2 rotate y*-Twist*.8 translate <0, .630, .022> }
  texture { Scarf }
  rotate y*Twist rotate x*3.5 translate y*HipHeight
}

#declare Skirt = lathe {                         // of the vest; it widens with the stride
  cubic_spline 7
  <.10, .07>, <.140, .06>, <.168, -.03>, <.192, -.10>, <.205, -.20>, <.185, -.205>, <.10, -.20>
  scale <1, 1, .93 + .16*abs(sin(Phase))> translate y*HipHeight texture { Vest }
}

IsoCamera(76, 114, 38, 95.5)
#declare Islander = union {
  Leg(-1, LeftHip, LeftKnee)
  Leg(1, RightHip, RightKnee)
  object { UpperBody }
  object { Skirt }
  scale BodyScale
  rotate y*45*Direction
}
Show(Islander)
