# After a mouse click, slow typing (keys processed on their key-up) gives the same Tamil.
start_target
start_quilom --start-typing
click_target
xdotool type --delay 200 'thamizh'
expect_text 'தமிழ்'
click_target
xdotool type --delay 200 ' Naan'
expect_text 'தமிழ் ணான்'
expect_no_latin_characters
