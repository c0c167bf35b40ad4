"""Where the client's widgets stand in a window of a given size: points (x, y) and regions (left, top, right, bottom)."""


class Layout:
    def __init__(self, width, height):
        def centered(box_width, box_height):
            left, top = (width - box_width) // 2, (height - box_height) // 2
            return left, top, left + box_width, top + box_height

        def inside(region, *numbers):
            """A point or region relative to the top left corner of another region."""
            return tuple(number + region[i % 2] for i, number in enumerate(numbers))

        middle_x, middle_y = width // 2, height // 2
        # Where the pointer touches nothing.
        self.corner = width - 1, height - 1

        # Login
        self.login_window = centered(250, 150)
        self.name_box = inside(self.login_window, 100, 50, 230, 70)
        self.status_line = 0, height - 40, width, height - 20
        # Where only a longer text than "Connecting" reaches.
        self.long_status = 0, height - 40, middle_x - 65, height - 20

        # Lobby
        side = width - 150
        users_top, users_bottom = 270, 270 + (height - 45 - 270) // 2
        self.chat_box = 0, 100, side, height - 45
        self.chat_users = side, users_top, width, users_bottom
        self.connection_label = side + 2, 200, width - 2, 220
        self.lobby_input = 5, height - 25, width - 5, height - 2
        self.quit_button, self.options_button, self.enter_game_button = (width - 47, 57), (width - 47, 83), (width - 130, 57)
        self.options_window = centered(300, 210)
        self.middle_size_option = inside(self.options_window, 18, 130)
        self.music_option = inside(self.options_window, 168, 78)
        self.options_close_button = inside(self.options_window, 290, 10)

        # World
        self.bottom_bar = 0, height - 30, width, height
        self.world_input = 20, height - 31, width, height - 11
        self.history = 0, height - 54, width - 20, height - 36
        self.own_speech = middle_x - 150, middle_y - 95, middle_x + 150, middle_y - 80
        # The ground around the player, between speech and the panels at the bottom.
        self.view = middle_x - 150, middle_y - 60, middle_x + 150, middle_y + 60
