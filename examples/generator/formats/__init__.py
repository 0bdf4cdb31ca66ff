"""Writers of the sounding file formats, one module for each format."""
