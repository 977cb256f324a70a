"""Reads and writes the messages of the interface, by its description alone."""
