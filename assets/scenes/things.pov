// What stands on one field: Thing is the picture's id. The middle of the field is the origin; the thing
// is moved from it by so many pixels to the right and down.
#include "iso.inc"
#ifndef (Thing) #declare Thing = 120000; #end
#ifndef (Right) #declare Right = 0; #end
#ifndef (Down) #declare Down = 0; #end
#declare RS = seed(Thing);

#include "leaves.inc"
#include "woods.inc"
#include "trees.inc"
#include "plants.inc"
#include "stones.inc"
#include "crafts.inc"
#include "shore.inc"

#switch (Thing)
  #case (120000) #declare Standing = Oak() #break
  #case (120001) #declare Standing = Beech() #break
  #case (120002) #declare Standing = Pine() #break
  #case (120003) #declare Standing = Palm() #break
  #case (120004) #declare Standing = Birch() #break
  #case (120005) #declare Standing = AutumnTree() #break
  #case (120006) #declare Standing = DeadTree() #break
  #case (120007) #declare Standing = YoungPine() #break
  #case (120008) #declare Standing = GreatOak() #break
  #case (120009) #declare Standing = SlenderTree() #break
  #case (120010) #declare Standing = Hornbeam() #break
  #case (120011) #declare Standing = OldPine() #break
  #case (120012) #declare Standing = PineGroup() #break
  #case (120013) #declare Standing = CrookedPine() #break
  #case (120014) #declare Standing = object { Oak() scale <-.84, .86, .84> } #break              // a young oak
  #case (120015) #declare Standing = object { Beech() scale <-.80, .78, .80> } #break            // a young beech
  #case (120016) #declare Standing = SlimPine() #break
  #case (120020) #declare Standing = Bush() #break
  #case (120021) #declare Standing = BerryBush() #break
  #case (120022) #declare Standing = Fern() #break
  #case (120023) #declare Standing = Mushrooms() #break
  #case (120024) #declare Standing = Tuft() #break
  #case (120025) #declare Standing = FlowerTuft() #break
  #case (120026) #declare Standing = Poppies() #break
  #case (120027) #declare Standing = Reeds() #break
  #case (120028) #declare Standing = WaterLilies() #break
  #case (120040) #declare Standing = Rocks() #break
  #case (120041) #declare Standing = Boulder() #break
  #case (120042) #declare Standing = Pebbles() #break
  #case (120043) #declare Standing = Stump() #break
  #case (120044) #declare Standing = Logs() #break
  #case (120060) #declare Standing = Fence(45) #break        // north-east, then clockwise
  #case (120061) #declare Standing = Fence(135) #break
  #case (120062) #declare Standing = Fence(225) #break
  #case (120063) #declare Standing = Fence(315) #break
  #case (120080) #declare Standing = Lantern() #break
  #case (120081) #declare Standing = Well() #break
  #case (120082) #declare Standing = Signpost() #break
  #case (120083) #declare Standing = Barrels() #break
  #case (120084) #declare Standing = FlowerBed() #break
  #case (120085) #declare Standing = FruitStall() #break
  #case (120086) #declare Standing = FishStall() #break
  #case (120087) #declare Standing = Bench() #break
  #case (120088) #declare Standing = Haystack() #break
  #case (120089) #declare Standing = Cart() #break
  #case (120090) #declare Standing = Campfire() #break
  #case (120091) #declare Standing = Scarecrow() #break
  #case (120100) #declare Standing = Pier(-45) #break
  #case (120101) #declare Standing = Pier(45) #break
  #case (120102) #declare Standing = Boat() #break
  #case (120103) #declare Standing = SailingBoat() #break
  #else #error "no such thing"
#end

IsoCamera(76, 228, 38, 209.5)
Show(object { Standing translate <Right/PixelsPerUnit, 0, -Down/PixelsPerUnit*76/36> })
