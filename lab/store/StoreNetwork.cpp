#include "store/Store.h"

namespace Lab {

std::vector<AgentRow> Store::ListAgents(std::int64_t host) {
  Query query = database_->Prepare(
      "SELECT id, node_uuid, witness, supports_unicast, address, port, bound_interface"
      " FROM unicast_agents WHERE host = ? ORDER BY id",
      host);
  std::vector<AgentRow> rows;
  while (query.Step()) {
    rows.push_back({query.Int(0), query.Text(1), query.Bool(2), query.Bool(3), query.Text(4),
                    query.Int(5), query.Text(6)});
  }
  return rows;
}

void Store::AddAgent(std::int64_t host, const AgentRow& agent) {
  database_->Run("INSERT INTO unicast_agents VALUES (NULL, ?, ?, ?, ?, ?, ?, ?)", host,
                 agent.nodeUuid, agent.witness, agent.supportsUnicast, agent.address, agent.port,
                 agent.boundInterface);
}

void Store::RemoveAgent(std::int64_t agent) {
  database_->Run("DELETE FROM unicast_agents WHERE id = ?", agent);
}

std::vector<KnicRow> Store::ListKnics(std::int64_t host) {
  Query query = database_->Prepare("SELECT * FROM knics WHERE host = ? ORDER BY name", host);
  std::vector<KnicRow> rows;
  while (query.Step()) {
    rows.push_back({query.Text(1), query.Text(2), query.Text(3), query.Text(4), query.Text(5),
                    query.Text(6), query.Int(7), query.Int(8), query.Int(9), query.Int(10),
                    query.Bool(11), query.Bool(12), query.Bool(13)});
  }
  return rows;
}

void Store::SaveKnic(std::int64_t host, const KnicRow& knic) {
  database_->Run("INSERT OR REPLACE INTO knics VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
                 host, knic.name, knic.uuid, knic.agentGroup, knic.agentV6Group, knic.masterGroup,
                 knic.masterV6Group, knic.agentPort, knic.masterPort, knic.hostUnicastPort,
                 knic.multicastTtl, knic.dovra, knic.witness, knic.running);
}

void Store::RemoveKnic(std::int64_t host, std::string_view name) {
  database_->Run("DELETE FROM knics WHERE host = ? AND name = ?", host, name);
}

void Store::ClearKnics(std::int64_t host) {
  database_->Run("DELETE FROM knics WHERE host = ?", host);
}

void Store::SetKnicsRunning(std::int64_t host, bool running) {
  database_->Run("UPDATE knics SET running = ? WHERE host = ?", running, host);
}

}  // namespace Lab
