/* Options of types.def, written by "wexcorin doc c". */
#ifndef TYPES_OPTIONS_H
#define TYPES_OPTIONS_H

/* Numbers, as functions whose names end in nr take them. They hold for this definition file only. */
enum {
  types_nr_Help = 1,
  types_nr_peak_temperature = 2, /* # Highest </h3> temperature */
  types_nr_rate = 3, /* * / Degrees per second / * and ? ?/ second value */
  types_nr_vents = 4, /* Vents a|b and `c` */
  types_nr_atmosphere = 5, /* <script>pwned = 3</script> & "quoted" 'single' &amp; */
  types_nr_a_very_long_name_that_does_not_fit_on_any_telephone_and_even_less_in_a_table = 6, /* javascript:pwned=5 */
  types_nr_glaze = 7, /* An \xc3\xa4, in a group that is not declared */
  types_nr_cone = 8, /* Cones, one per use of the key */
  types_nr_dot_shelf = 9, /* Shelf of a single piece */
  types_nr_search = 10, /* The name of an element of the page */
  types_nr_note = 11,
  types_nr_damper = 12, /* Before there were vents */
  types_nr_door = 13, /* Front and back */
  types_nr_program = 14, /* Both, separated by ":" */
  types_nr_everything = 15, /* The same value for all of them */
  types_nr_explain = 16, /* Explain an option */
};

/* Reference numbers, which the definition file gives to its options. */
enum {
  types_ref_Help = 0,
  types_ref_peak_temperature = 1,
  types_ref_rate = 2,
  types_ref_vents = 3,
  types_ref_atmosphere = 4,
  types_ref_a_very_long_name_that_does_not_fit_on_any_telephone_and_even_less_in_a_table = 5,
  types_ref_glaze = 6,
  types_ref_cone = 7,
  types_ref_dot_shelf = 8,
  types_ref_search = 9,
  types_ref_note = 10,
  types_ref_damper = 11,
  types_ref_door = 12,
  types_ref_program = 13,
  types_ref_everything = -1,
  types_ref_explain = -1,
};

/* vents: values */
enum {
  types_value_vents_minus_5 = -5, /* <i>shut</i> for $5 */
  types_value_vents_60 = 60, /* Not in the listings */
};

/* atmosphere: items, as optgetenumstrnr gives them */
enum {
  types_value_atmosphere_WOOD_smoke = 1, /* The default */
  types_value_atmosphere_argon = 2, /* In backticks */
  types_value_atmosphere_a_value_with_a_very_long_name_that_does_not_fit_beside_its_help_on_any_telephone = 3, /* Long */
};

/* door: items, as optgetenumstrnr gives them */
enum {
  types_value_door_open = 1,
  types_value_door_shut = 2,
};

#endif
