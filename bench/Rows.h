#pragma once

namespace tolva::bench {

class Table;

// Each measures one field of work and adds its rows, once a run.
void AddFrameRows(Table& table);
void AddGroundRows(Table& table);
void AddCodecRows(Table& table);
void AddMapRows(Table& table);
void AddControlRows(Table& table);
void AddStartUpRows(Table& table);
// How the cost grows with the window, with people and with what was said. Without aims.
void AddGrowthRows(Table& table);

}  // namespace tolva::bench
