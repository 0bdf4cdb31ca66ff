"""Generator of the synthetic example soundings."""
