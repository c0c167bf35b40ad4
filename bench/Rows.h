#pragma once

namespace tolva::bench {

class Table;

// Each measures one field of work and adds its rows, once a run.
void AddFrameRows(Table& table);
void AddGroundRows(Table& table);

}  // namespace tolva::bench
