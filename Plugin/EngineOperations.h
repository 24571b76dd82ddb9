// The engine's operations beyond the classic contract, offered to the host.
#ifndef PLUGIN_ENGINEOPERATIONS_H
#define PLUGIN_ENGINEOPERATIONS_H

// Hands the table to the host, if it takes one.
void OfferEngineOperations();

#endif
