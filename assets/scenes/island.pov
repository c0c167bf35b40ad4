// The island from the sea. Mode 0 is the title picture; 1 day, 2 dusk and 3 night are strips.
// island.png and island_trees.inc come from island_shape.py.
#include "palette.inc"
#ifndef (Mode) #declare Mode = 0; #end

// ---- light moods -----------------------------------------------------------------------------
#switch (Mode)
  #case (0)                                      // late afternoon
    #declare SunFrom = vnormalize(<-.80, .42, -.62>);
    #declare SunColor = <1.50, 1.08, .62>*1.05;
    #declare DomeColor = <.50, .62, .95>*.40;
    #declare SkyTop = <46, 92, 160>;
    #declare SkyMiddle = <126, 168, 206>;
    #declare SkyLow = <255, 214, 150>;
    #declare Cloud = <255, 236, 214>;
    #declare DeepSea = <16, 62, 92>;
    #declare ShallowSea = <52, 150, 150>;
    #declare Lamp = .6;
  #break
  #case (1)
    #declare SunFrom = vnormalize(<-.62, .95, -.65>);
    #declare SunColor = <1.10, 1.02, .88>*1.15;
    #declare DomeColor = <.62, .76, 1>*.50;
    #declare SkyTop = <58, 122, 196>;
    #declare SkyMiddle = <118, 174, 222>;
    #declare SkyLow = <206, 230, 240>;
    #declare Cloud = <255, 255, 255>;
    #declare DeepSea = <18, 86, 126>;
    #declare ShallowSea = <72, 184, 180>;
    #declare Lamp = 0;
  #break
  #case (2)
    #declare SunFrom = vnormalize(<-.95, .20, -.25>);
    #declare SunColor = <1.45, .66, .30>*.85;
    #declare DomeColor = <.60, .42, .62>*.36;
    #declare SkyTop = <58, 48, 110>;
    #declare SkyMiddle = <190, 92, 104>;
    #declare SkyLow = <255, 186, 96>;
    #declare Cloud = <250, 150, 110>;
    #declare DeepSea = <48, 40, 82>;
    #declare ShallowSea = <92, 84, 110>;
    #declare Lamp = 1.2;
  #break
  #case (3)
    #declare SunFrom = vnormalize(<.55, .70, -.55>);
    #declare SunColor = <.34, .44, .72>*.42;
    #declare DomeColor = <.20, .28, .55>*.30;
    #declare SkyTop = <8, 12, 38>;
    #declare SkyMiddle = <18, 28, 66>;
    #declare SkyLow = <44, 62, 108>;
    #declare DeepSea = <8, 18, 44>;
    #declare ShallowSea = <20, 48, 74>;
    #declare Lamp = 2.2;
  #break
#end
#declare PaneGlow = (Lamp > 1 ? 1 : 0);
#declare LampFade = 3;                           // lamps light their village, not the forest

// ---- houses ------------------------------------------------------------------------------------
#declare LX = 3;
#declare LZ = 3;
#declare Kind = 1;
#include "house.inc"
#declare TiledHouse = object { House }
#declare LZ = 2;
#declare Kind = 2;
#include "house.inc"
#declare ThatchedHouse = object { House }

// ---- light -------------------------------------------------------------------------------------
light_source { SunFrom*3000 color rgb SunColor parallel point_at 0 }
#declare DomeLights = 14;
#declare I = 0;
#while (I < DomeLights)
  #declare DomeY = (I + .5)/DomeLights;
  #declare DomeAngle = I*2.399963;
  #declare DomeR = sqrt(1 - DomeY*DomeY);
  light_source {
    <DomeR*cos(DomeAngle), DomeY, DomeR*sin(DomeAngle)>*3000
    color rgb DomeColor/DomeLights*2 parallel point_at 0
  }
  #declare I = I + 1;
#end

// ---- sky -------------------------------------------------------------------------------------
#declare SkyScale = 1;
#if (Mode > 0) #declare SkyScale = .14; #end     // the strips only show the lowest sky
sky_sphere {
  pigment {
    gradient y
    color_map {
      [0 V8(SkyLow)] [.10*SkyScale V8((SkyLow + SkyMiddle)/2)] [.26*SkyScale V8(SkyMiddle)]
      [.62*SkyScale V8(SkyTop)] [1 V8(SkyTop*.75)]
    }
  }
  #if (Mode != 3)
    pigment {
      bozo turbulence .75 octaves 7 omega .55 lambda 2.2 scale <.55, .14, .4> translate <.3, .21, .9>
      color_map { [0 rgbt 1] [.50 rgbt 1] [.60 V8(Cloud) transmit .62] [.74 V8(Cloud) transmit .12] [1 V8(Cloud*.92)] }
    }
  #end
}
#if (Mode = 3)
  // Stars are far spheres of about half a pixel: a granite pigment gave blobs, and the sea
  // mirrored them.
  #declare StarRandom = seed(21);
  #declare I = 0;
  #while (I < 64)
    #local Bright = .25 + .75*pow(rand(StarRandom), 2);
    sphere {
      <-510 + 1020*rand(StarRandom), 24 + 122*pow(rand(StarRandom), .8), 2000>, 1.2 + .5*rand(StarRandom)
      pigment { rgb <.86, .93, 1>*Bright } finish { ambient 0 diffuse 0 emission 1 }
      no_shadow no_reflection
    }
    #declare I = I + 1;
  #end
#end

// ---- island and sea --------------------------------------------------------------------------
#declare RX = 44;                                // half width; the half depth is .72 of it
#declare Peak = 27;
#declare SeaY = 1.45;
#declare Swell = (Mode = 0 ? 1 : .5);            // seen so flat, high waves would only be noise
#declare Reach = 210;                            // towards the horizon the waves die away, for the same reason
#declare Waves = normal {
  spherical normal_map {
    [0 bumps .04 scale 1/Reach]
    [.72
      average normal_map {
        [1 bumps .36*Swell scale <2.8, 1, .9>/Reach]
        [1 bumps .30*Swell scale <1.1, 1, .4>/Reach rotate y*12]
        [.6 bumps .26*Swell scale <7, 1, 2.2>/Reach rotate y*-8]
      }
    ]
  }
  scale Reach translate -z*40
}
#declare Island = height_field {
  png "island.png" smooth translate <-.5, 0, -.5> scale <2*RX, Peak, 2*RX*.72>
  texture {                                      // beach, grass and rock by height
    pigment {
      gradient y scale Peak turbulence .015
      color_map {
        [0 C8(196, 172, 124)] [.035 C8(200, 172, 120)] [.085 C8(232, 208, 158)] [.105 C8(214, 190, 134)]
        [.118 C8(140, 160, 66)] [.25 C8(112, 150, 58)] [.40 C8(92, 128, 54)] [.55 C8(120, 126, 80)]
        [.62 C8(150, 142, 126)] [1 C8(178, 170, 158)]
      }
    }
    normal { bumps .5 scale .6 } finish { ambient 0 diffuse .88 }
  }
  texture {                                      // bare rock where it is steep
    pigment {
      slope { y }
      color_map {
        [0 C8(140, 128, 112)] [.50 C8(152, 140, 122)] [.58 C8(146, 134, 116) transmit .35]
        [.66 rgbt 1] [1 rgbt 1]
      }
    }
    normal { granite .7 scale 3 } finish { ambient 0 diffuse .88 }
  }
}
object { Island }
#macro OnIsland(X, Z) trace(Island, <X, 200, Z>, -y) #end

plane {
  y, SeaY
  texture {
    pigment {
      spherical scale <RX*1.28, 1, RX*.86> translate y*SeaY turbulence .08
      color_map {
        [0 V8(DeepSea)] [.10 V8(DeepSea)] [.24 V8((DeepSea*.55 + ShallowSea*.45))]
        [.34 V8(ShallowSea)] [1 V8(ShallowSea)]
      }
    }
    normal { Waves }
    finish { ambient 0 diffuse .70 specular .55 roughness .012 reflection { .03, .62 fresnel on } }
  }
  interior { ior 1.33 }
}

// ---- trees and palms --------------------------------------------------------------------------
#declare RS = seed(15);
#include "far_plants.inc"
#include "island_trees.inc"                      // TreeCount, Trees[][x, z, kind, size, turn]
#declare I = 0;
#while (I < TreeCount)
  #local P = OnIsland(Trees[I][0]*RX, Trees[I][1]*RX*.72);
  #if (P.y > SeaY + .5)
    object {
      #switch (Trees[I][2])
        #case (1) FarBroadTree #break
        #case (2) FarConifer #break
        #else FarPalm
      #end
      scale Trees[I][3]*1.55 rotate y*Trees[I][4] translate P
    }
  #end
  #declare I = I + 1;
#end

// Palms along the beach: walk inwards from the sea on each bearing until there is dry sand.
#declare J = 0;
#while (J < 26)
  #local Bearing = (-165 + 150*J/26 + 4*rand(RS))*pi/180;
  #local R = .95;
  #local X = 0;
  #local Z = 0;
  #local H = 0;
  #while (R > .3 & H < SeaY + .55)
    #local X = RX*R*cos(Bearing);
    #local Z = RX*.72*R*sin(Bearing)*.75;
    #local Q = OnIsland(X, Z);
    #local H = Q.y;
    #local R = R - .01;
  #end
  #if (abs(X - 4) > 9)
    object { FarPalm scale 1.5*(.8 + .4*rand(RS)) rotate y*rand(RS)*360 translate OnIsland(X*.98, Z*.98) - y*.1 }
  #end
  #declare J = J + 1;
#end

// ---- village ---------------------------------------------------------------------------------
#macro Put(O, X, Z, Size, Turn)
  #local P = OnIsland(X, Z);
  object { O scale Size rotate y*Turn translate <X, P.y - .35, Z> }
  #if (Lamp > 0)
    light_source {
      <X, P.y + 1.6, Z - 3.2> color rgb <1, .62, .25>*Lamp fade_distance 2.4 fade_power LampFade shadowless
    }
  #end
#end
Put(TiledHouse, 4, -9.5, 1.30, 0)
Put(ThatchedHouse, 9.6, -9.2, 1.25, 18)
Put(ThatchedHouse, -.8, -11.2, 1.25, -12)
Put(TiledHouse, 12.4, -5.0, 1.2, -20)
Put(ThatchedHouse, 1.6, -5.2, 1.2, 10)

// ---- lighthouse on the right cape ------------------------------------------------------------
#declare Cape = OnIsland(27, -6.5);
#declare Iron = pigment { C8(70, 66, 66) }
union {
  cone {
    0, 1.5, y*8.0, .95
    pigment {
      gradient y scale 3.2
      color_map { [0 C8(238, 232, 220)] [.5 C8(238, 232, 220)] [.5 C8(190, 62, 52)] [1 C8(190, 62, 52)] }
    }
    finish { ambient 0 diffuse .88 }
  }
  cylinder { y*8.0, y*8.25, 1.35 pigment { Iron } finish { ambient 0 diffuse .8 } }
  torus { 1.28, .06 translate y*8.8 pigment { Iron } }
  #local K = 0;
  #while (K < 12)
    cylinder { <1.28, 8.2, 0>, <1.28, 8.8, 0>, .05 rotate y*K*30 pigment { Iron } }
    #local K = K + 1;
  #end
  cylinder { y*8.25, y*9.5, .62 pigment { C8(255, 226, 150) } finish { emission .35 + Lamp*.5 diffuse .4 } }
  cone { y*9.5, .95, y*10.5, .05 pigment { C8(170, 54, 46) } finish { ambient 0 diffuse .85 } }
  cylinder {
    -y*2, y*.3, 1.9 pigment { C8(160, 150, 136) } normal { crackle 1 scale .4 } finish { ambient 0 diffuse .85 }
  }
  translate Cape
}
#if (Lamp > 1)
  light_source { Cape + y*8.9 color rgb <1, .8, .45>*Lamp*.5 fade_distance 5 fade_power LampFade shadowless }
#end

// ---- jetty and sail boats --------------------------------------------------------------------
union {
  #local K = 0;
  #while (K < 18)
    #local Z = -18 - K*.5;
    box { <-.55, SeaY + .50, Z>, <.55, SeaY + .60, Z + .44> }
    #if (mod(K, 4) = 0)
      cylinder { <-.5, SeaY - 2, Z>, <-.5, SeaY + 1.0, Z>, .12 }
      cylinder { <.5, SeaY - 2, Z>, <.5, SeaY + 1.0, Z>, .12 }
    #end
    #local K = K + 1;
  #end
  pigment { C8(142, 108, 72) } finish { ambient 0 diffuse .85 }
  translate <3.5, 0, 3.6>
}

#declare SailFinish = finish { ambient 0 diffuse .75, .3 }     // light comes through
#macro SailBoat(P, Turn, Size)
  union {
    difference {
      sphere { 0, 1 scale <2.1, 1.0, .75> }
      plane { -y, 0 }
      sphere { 0, 1 scale <1.95, .9, .65> }
      pigment { C8(150, 84, 48) } finish { ambient 0 diffuse .85 } translate y*.55
    }
    cylinder { <.1, 0, 0>, <.1, 4.6, 0>, .06 pigment { C8(110, 80, 52) } }
    triangle { <0, .9, 0>, <0, 4.4, 0>, <-1.9, 1.0, .35> pigment { C8(246, 236, 214) } finish { SailFinish } }
    triangle { <.2, .9, 0>, <.2, 4.1, 0>, <1.7, 1.0, .25> pigment { C8(226, 120, 76) } finish { SailFinish } }
    scale Size rotate y*Turn translate P
  }
#end
SailBoat(<-15, SeaY - .1, -30>, 28, 1.05)
SailBoat(<20, SeaY - .1, -27>, 35, .8)

#if (Mode = 0)
  camera { location <-6, 10.5, -70> right x*5/3 up y look_at <1.2, 14.7, 0> angle 56 }
#else
  camera { location <0, 6.5, -230> right x*5 up y look_at <1, 10.2, 0> angle 28.5 }
#end
