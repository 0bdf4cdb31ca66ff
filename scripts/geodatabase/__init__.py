"""The parts of make-geodatabase: what fetches, what reads, what cuts, what writes."""
