#pragma once

namespace tolva::bench {

class Table;

// Each measures one field of work and adds its rows, once a run.
void AddCodecRows(Table& table);
void AddFrameRows(Table& table);
void AddGroundRows(Table& table);
void AddMapRows(Table& table);
void AddControlRows(Table& table);
void AddStartUpRows(Table& table);

}  // namespace tolva::bench
